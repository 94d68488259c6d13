// The archive of a nib, objects.xib, as a graph of objects that name each other.
//
// An element's tag is the type of a value, and its attribute `name` the property that has this value. An object may
// stand inside its owner, or anywhere else with a reference in its place; the graph is the same.

#ifndef TOOLBOX_CORE_NIBS_NIBARCHIVE_H
#define TOOLBOX_CORE_NIBS_NIBARCHIVE_H

#include "toolbox/core/nibs/NibObject.h"

#include <QByteArray>

#include <memory>

namespace Toolbox {

class NibArchive {
public:
    /// The graph in `xml`. Nothing, with the reason in `*problem`, when that is not well-formed XML, is beyond the
    /// limits of XmlLimits.h, gives two objects one id, or holds a value that is not of its type. Counts in it are
    /// ignored.
    static std::optional<NibArchive> read(const QByteArray& xml, QString* problem);

    /// The object that `reference` names, or null.
    const NibObject* find(const NibReference& reference) const;

    /// The entry `name` of the name table, the first of several, or null.
    const NibValue* named(const QString& name) const;

private:
    friend class NibArchiveReader;

    std::map<QString, NibObject> m_objects;  // by id
    NibDictionary m_nameTable;
};

}  // namespace Toolbox

#endif
