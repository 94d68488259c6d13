#include "toolbox/core/bundles/PlugInRegister.h"

#include "toolbox/base/NeverDestroyed.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace Toolbox {

namespace {

using TypeAndFactory = std::pair<UUIDBytes, UUIDBytes>;

struct Register {
    std::map<UUIDBytes, Factory> factories;
    std::vector<TypeAndFactory> types;  // in the order in which they were registered
};

// Bundles that live until the process ends stay in it.
Register& plugIns()
{
    return neverDestroyed<struct PlugIns, Register>();
}

// What project templates leave in an Info.plist. Many bundles have it, and none has such a factory.
constexpr UUIDBytes TEMPLATE_ID = {};
constexpr const char* TEMPLATE_FUNCTION = "MyFactoryFunction";

// The bytes of a UUID's text, 8-4-4-4-12 hexadecimal digits of either case; nothing for any other text.
std::optional<UUIDBytes> parseUUID(const QString& text)
{
    static const QRegularExpression FORM(
        QRegularExpression::anchoredPattern("[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}"));
    if (!FORM.match(text).hasMatch())
        return std::nullopt;
    const QByteArray digits = QByteArray::fromHex(text.toLatin1());  // which leaves out the hyphens
    UUIDBytes bytes{};
    std::copy(digits.begin(), digits.end(), bytes.begin());
    return bytes;
}

void registerFactory(Bundle& bundle, const QString& id, const QVariant& function)
{
    const std::optional<UUIDBytes> bytes = parseUUID(id);
    if (!bytes.has_value() || function.typeId() != QMetaType::QString)
        return;
    const Factory factory = {*bytes, &bundle, function.toString()};
    const bool isResidue = factory.id == TEMPLATE_ID && factory.function == TEMPLATE_FUNCTION;
    if (!isResidue)
        plugIns().factories.emplace(factory.id, factory);  // an id that is taken stays with the bundle that has it
}

bool isFactoryOf(const Bundle& bundle, const UUIDBytes& id)
{
    const auto factory = plugIns().factories.find(id);
    return factory != plugIns().factories.end() && factory->second.bundle == &bundle;
}

bool isRegistered(const TypeAndFactory& entry)
{
    const std::vector<TypeAndFactory>& types = plugIns().types;
    return std::find(types.begin(), types.end(), entry) != types.end();
}

void registerType(const Bundle& bundle, const QString& type, const QString& factory)
{
    const std::optional<UUIDBytes> typeBytes = parseUUID(type);
    const std::optional<UUIDBytes> id = parseUUID(factory);
    if (!typeBytes.has_value() || !id.has_value() || !isFactoryOf(bundle, *id))
        return;
    if (const TypeAndFactory entry(*typeBytes, *id); !isRegistered(entry))
        plugIns().types.push_back(entry);
}

// A type's factories are an array of texts, or one text.
QVariantList listOf(const QVariant& factories)
{
    return factories.typeId() == QMetaType::QString ? QVariantList{factories} : factories.toList();
}

}  // namespace

void registerFactories(Bundle& bundle)
{
    const QVariantMap factories = bundle.info().value("CFPlugInFactories").toMap();
    for (auto factory = factories.begin(); factory != factories.end(); ++factory)
        registerFactory(bundle, factory.key(), factory.value());

    const QVariantMap types = bundle.info().value("CFPlugInTypes").toMap();
    for (auto type = types.begin(); type != types.end(); ++type) {
        for (const QVariant& factory : listOf(type.value()))
            registerType(bundle, type.key(), factory.toString());
    }
}

void unregisterFactories(const Bundle& bundle)
{
    std::vector<TypeAndFactory>& types = plugIns().types;
    const auto isOfBundle = [&](const TypeAndFactory& entry) { return isFactoryOf(bundle, entry.second); };
    types.erase(std::remove_if(types.begin(), types.end(), isOfBundle), types.end());

    std::map<UUIDBytes, Factory>& factories = plugIns().factories;
    for (auto factory = factories.begin(); factory != factories.end();)
        factory = factory->second.bundle == &bundle ? factories.erase(factory) : std::next(factory);
}

const Factory* findFactory(const UUIDBytes& id, const UUIDBytes& type)
{
    return isRegistered({type, id}) ? &plugIns().factories.at(id) : nullptr;
}

std::vector<Factory> factoriesForType(const UUIDBytes& type)
{
    std::vector<Factory> factories;
    for (const auto& [registeredType, id] : plugIns().types) {
        if (registeredType == type)
            factories.push_back(plugIns().factories.at(id));
    }
    return factories;
}

}  // namespace Toolbox
