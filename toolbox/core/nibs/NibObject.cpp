#include "toolbox/core/nibs/NibObject.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace Toolbox {

template <typename T> const T* NibObject::find(const char* name) const
{
    const auto found = properties.find(QString::fromLatin1(name));
    return found == properties.end() ? nullptr : found->second.as<T>();
}

QString NibObject::text(const char* name) const
{
    const QString* const found = find<QString>(name);
    return found == nullptr ? QString() : *found;
}

SInt32 NibObject::number(const char* name, SInt32 otherwise) const
{
    const long long* const found = find<long long>(name);
    if (found == nullptr)
        return otherwise;
    using Range = std::numeric_limits<SInt32>;
    return static_cast<SInt32>(std::clamp<long long>(*found, Range::min(), Range::max()));
}

bool NibObject::flag(const char* name, bool otherwise) const
{
    const bool* const found = find<bool>(name);
    return found == nullptr ? otherwise : *found;
}

OSType NibObject::code(const char* name) const
{
    const NibCode* const found = find<NibCode>(name);
    return found == nullptr ? 0 : found->code;
}

std::optional<NibReference> NibObject::reference(const char* name) const
{
    const NibReference* const found = find<NibReference>(name);
    return found == nullptr ? std::nullopt : std::optional(*found);
}

const NibArray& NibObject::array(const char* name) const
{
    static const NibArray empty;
    const NibArray* const found = find<NibArray>(name);
    return found == nullptr ? empty : *found;
}

std::optional<Rect> NibObject::rectangle(const char* name) const
{
    const QStringList numbers = text(name).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (numbers.size() != 4)
        return std::nullopt;
    SInt16 edges[4];
    for (int i = 0; i < 4; ++i) {
        bool isNumber = false;
        edges[i] = numbers[i].toShort(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    return Rect{edges[0], edges[1], edges[2], edges[3]};
}

}  // namespace Toolbox
