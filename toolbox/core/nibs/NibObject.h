// An object of a nib: its class and its properties, as the archive gives them.

#ifndef TOOLBOX_CORE_NIBS_NIBOBJECT_H
#define TOOLBOX_CORE_NIBS_NIBOBJECT_H

#include <Carbon/MacTypes.h>

#include <QString>

#include <map>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace Toolbox {

struct NibValue;

/// Names an object that stands elsewhere in the archive, or, where a value is an object itself, that object.
struct NibReference {
    QString id;
};

/// Four characters in Mac OS Roman.
struct NibCode {
    OSType code;
};

using NibArray = std::vector<NibValue>;
using NibDictionary = std::vector<std::pair<QString, NibValue>>;  // in the archive's order

/// A value of a property or an element. Of a kind that the archive may hold and that is of no use here: std::monostate.
struct NibValue {
    std::variant<std::monostate, QString, long long, bool, NibCode, NibReference, NibArray, NibDictionary> content;

    /// The content if it is a `T`, else null.
    template <typename T> const T* as() const { return std::get_if<T>(&content); }
};

/// Properties are asked for by name and type. One that is not there, or of another type, gives the default, since an
/// archive leaves out what stands at its default.
class NibObject {
public:
    QString className;
    std::map<QString, NibValue> properties;

    QString text(const char* name) const;
    // The nearer end of its range for one of more than 32 bits.
    SInt32 number(const char* name, SInt32 otherwise) const;
    bool flag(const char* name, bool otherwise) const;
    OSType code(const char* name) const;  // 0 where there is none
    std::optional<NibReference> reference(const char* name) const;
    const NibArray& array(const char* name) const;  // empty where there is none

    /// The rectangle whose text is "top left bottom right"; none when it is not there, or not four whole numbers of
    /// 16 bits.
    std::optional<Rect> rectangle(const char* name) const;

private:
    template <typename T> const T* find(const char* name) const;
};

}  // namespace Toolbox

#endif
