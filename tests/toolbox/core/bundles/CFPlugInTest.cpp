#include "tests/toolbox/core/bundles/PlugInBundle.h"
#include "toolbox/core/core_foundation/UUIDObject.h"

#include <Toolbox/Trace.h>

#include <QByteArray>
#include <QUuid>

#include <tuple>
#include <vector>

namespace {

using Toolbox::findObject;
using Toolbox::UUIDObject;

// Factories and types, by their ids.
const std::string FIRST = "11111111-2222-3333-4444-5555555555AA";
const std::string SECOND = "11111111-2222-3333-4444-5555555555BB";
const std::string THIRD = "11111111-2222-3333-4444-5555555555CC";
const std::string TYPE = "5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8";
const std::string OTHER_TYPE = "00D5FBFE-3D3D-40E2-9DCB-92ED695834F8";
const std::string ZEROS = "00000000-0000-0000-0000-000000000000";

std::string lowerCase(const std::string& id)
{
    return QByteArray::fromStdString(id).toLower().toStdString();
}

// The constant UUID of the text `id`.
CFUUIDRef uuid(const std::string& id)
{
    const QByteArray b = QUuid(QByteArray::fromStdString(id)).toRfc4122();
    const auto byte = [&](int index) { return static_cast<UInt8>(b[index]); };
    return CFUUIDGetConstantUUIDWithBytes(nullptr, byte(0), byte(1), byte(2), byte(3), byte(4), byte(5), byte(6),
        byte(7), byte(8), byte(9), byte(10), byte(11), byte(12), byte(13), byte(14), byte(15));
}

// The text of `id`.
std::string textOf(CFUUIDRef id)
{
    const auto* const bytes = reinterpret_cast<const char*>(findObject<UUIDObject>(id)->bytes().data());
    return QUuid::fromRfc4122(QByteArrayView(bytes, 16)).toString(QUuid::WithoutBraces).toUpper().toStdString();
}

// Entries for the factories, and for the types.
std::string factories(const std::string& entries)
{
    return "<key>CFPlugInFactories</key><dict>" + entries + "</dict>";
}

std::string types(const std::string& entries)
{
    return "<key>CFPlugInTypes</key><dict>" + entries + "</dict>";
}

// An entry for `type` whose value is an array of `factories`.
std::string typeEntry(const std::string& type, const std::vector<std::string>& factories)
{
    std::string elements;
    for (const std::string& factory : factories)
        elements += "<string>" + factory + "</string>";
    return "<key>" + type + "</key><array>" + elements + "</array>";
}

// Registers the factory `id`, whose function is `function`, for the type.
std::string plugInEntries(const std::string& id, const std::string& function)
{
    return factories(stringEntry(id, function)) + types(typeEntry(TYPE, {id}));
}

// The factories for `type` in `plugIn`, by their texts; "null" alone for null.
std::vector<std::string> factoriesOf(const std::string& type, CFPlugInRef plugIn)
{
    const Owned array = CFPlugInFindFactoriesForPlugInTypeInPlugIn(uuid(type), plugIn);
    if (array == nullptr)
        return {"null"};
    std::vector<std::string> factories;
    for (CFIndex index = 0; index < CFArrayGetCount(array); ++index)
        factories.push_back(textOf(static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(array, index))));
    return factories;
}

CFPlugInRef createPlugIn(const fs::path& folder)
{
    return CFPlugInCreate(nullptr, Owned(makeURL(folder)));
}

// The datum `name` of the plug-in's code.
template <typename Datum> Datum* datumOf(CFPlugInRef plugIn, CFStringRef name)
{
    return static_cast<Datum*>(CFBundleGetFunctionPointerForName(plugIn, name));
}

using Texts = std::vector<std::string>;

class CFPlugIn : public BundleTest {
protected:
    // The plug-in of the bundle `name`, made without code and with these entries; the caller's.
    CFPlugInRef withoutCode(const std::string& entries, const std::string& name = "a.bundle") const
    {
        makeBundle(in(name), entries);
        return createPlugIn(in(name));
    }

    // The same with the plug-in's code.
    CFPlugInRef withCode(const std::string& entries, const std::string& name = "a.bundle") const
    {
        makePlugIn(in(name), entries);
        return createPlugIn(in(name));
    }
};

std::string valueEntry(const std::string& key, const std::string& value)
{
    return "<key>" + key + "</key>" + value;
}

const std::string TWO = factories(stringEntry(FIRST, "f") + stringEntry(SECOND, "g"));
const std::string FOR_TYPE = types(typeEntry(TYPE, {FIRST}));
const std::string DYNAMIC = stringEntry("CFPlugInDynamicRegistration", "YES");
const std::string NO_HYPHENS = "111111112222333344445555555555AA";
const std::string MISPLACED = "1111111-12222-3333-4444-5555555555AA";
const std::string MIXED = "<array><dict/><true/><string>" + FIRST + "</string></array>";

// clang-format off
// factories: of the type
const std::tuple<const char*, std::string, Texts> REGISTRATION_CASES[] = {
    // name                   Info.plist                                                               factories
    {"Nothing",               "",                                                                      {"null"}},
    {"OneFactory",            plugInEntries(FIRST, "f"),                                               {FIRST}},
    {"SeveralInOrder",        TWO + types(typeEntry(TYPE, {SECOND, FIRST})),                           {SECOND, FIRST}},
    {"EachOnce",              TWO + types(typeEntry(TYPE, {FIRST, SECOND, FIRST})),                    {FIRST, SECOND}},
    {"OneString",             TWO + types(stringEntry(TYPE, FIRST)),                                   {FIRST}},
    {"TypesFirst",            FOR_TYPE + TWO,                                                          {FIRST}},
    {"OtherType",             TWO + types(typeEntry(OTHER_TYPE, {FIRST})),                             {"null"}},
    {"SeveralTypes",          TWO + types(typeEntry(OTHER_TYPE, {FIRST}) + typeEntry(TYPE, {SECOND})), {SECOND}},
    {"LowerCase",             plugInEntries(lowerCase(FIRST), "f"),                                    {FIRST}},
    {"EitherCase",            factories(stringEntry(lowerCase(FIRST), "f")) + FOR_TYPE,                {FIRST}},
    {"LowerCaseType",         TWO + types(typeEntry(lowerCase(TYPE), {FIRST})),                        {FIRST}},
    {"FactoriesWithoutTypes", TWO,                                                                     {"null"}},
    {"TypesWithoutFactories", FOR_TYPE,                                                                {"null"}},
    {"NoFactories",           TWO + types(typeEntry(TYPE, {})),                                        {"null"}},
    {"UnknownFactory",        TWO + types(typeEntry(TYPE, {THIRD, FIRST})),                            {FIRST}},
    {"NoUUIDAsType",          TWO + types(typeEntry("type", {FIRST})),                                 {"null"}},
    {"EmptyFactory",          plugInEntries("", "f"),                                                  {"null"}},
    {"DigitMissing",          plugInEntries(FIRST.substr(0, 35), "f"),                                 {"null"}},
    {"DigitTooMany",          plugInEntries(FIRST + "0", "f"),                                         {"null"}},
    {"LineTooMany",           plugInEntries(FIRST + "\n", "f"),                                        {"null"}},
    {"NoDigit",               plugInEntries("G" + FIRST.substr(1), "f"),                               {"null"}},
    {"NoHyphens",             plugInEntries(NO_HYPHENS, "f"),                                          {"null"}},
    {"MisplacedHyphen",       plugInEntries(MISPLACED, "f"),                                           {"null"}},
    {"Braces",                plugInEntries("{" + FIRST + "}", "f"),                                   {"null"}},
    {"FunctionIsNoString",    factories(valueEntry(FIRST, "<array/>")) + FOR_TYPE,                     {"null"}},
    {"FunctionIsANumber",     factories(valueEntry(FIRST, "<integer>1</integer>")) + FOR_TYPE,         {"null"}},
    {"SomeAreNoStrings",      TWO + types(valueEntry(TYPE, MIXED)),                                    {FIRST}},
    {"TypeOfADictionary",     TWO + types(valueEntry(TYPE, "<dict/>")),                                {"null"}},
    {"FactoriesAreAnArray",   valueEntry("CFPlugInFactories", "<array/>") + FOR_TYPE,                  {"null"}},
    {"TypesAreAnArray",       TWO + valueEntry("CFPlugInTypes", "<array/>"),                           {"null"}},
    {"TemplateResidue",       plugInEntries(ZEROS, "MyFactoryFunction"),                               {"null"}},
    {"ZerosWithAFunction",    plugInEntries(ZEROS, "f"),                                               {ZEROS}},
    {"ResidueFunction",       plugInEntries(FIRST, "MyFactoryFunction"),                               {FIRST}},
    {"DynamicRegistration",   TWO + FOR_TYPE + DYNAMIC,                                                {FIRST}},
};
// clang-format on

TEST_F(CFPlugIn, RegistersWhatItsInfoSays)
{
    for (const auto& [name, entries, factories] : REGISTRATION_CASES) {
        SCOPED_TRACE(name);
        {
            const Owned plugIn = withoutCode(entries, name);
            EXPECT_EQ(factoriesOf(TYPE, plugIn), factories);
        }
        EXPECT_EQ(factoriesOf(TYPE, Owned(withoutCode("", "other"))), Texts{"null"})
            << "nothing is left in the register";
    }
}

TEST_F(CFPlugIn, IsTheBundleOfItsFolder)
{
    makeBundle(in("a.bundle"), plugInEntries(FIRST, "f"));
    const CFBundleRef bundle = createBundle(in("a.bundle"));
    EXPECT_EQ(createPlugIn(in("a.bundle")), bundle);
    CFRelease(bundle);
    CFRelease(bundle);
    EXPECT_EQ(createPlugIn(in("missing.bundle")), nullptr);
}

TEST_F(CFPlugIn, KeepsItsFactoriesUntilItsLastOwnerReleasesIt)
{
    const Owned other = withoutCode("", "b.bundle");
    const CFPlugInRef plugIn = withoutCode(plugInEntries(FIRST, "f"));
    EXPECT_EQ(createPlugIn(in("a.bundle")), plugIn);
    CFRelease(plugIn);
    EXPECT_EQ(factoriesOf(TYPE, plugIn), Texts{FIRST});
    EXPECT_EQ(factoriesOf(TYPE, other), Texts{}) << "another has one";
    CFRelease(plugIn);
    EXPECT_EQ(factoriesOf(TYPE, other), Texts{"null"}) << "nobody has one";
}

TEST_F(CFPlugIn, DoesNotGetAFactoryThatAnotherHas)
{
    const Owned a = withCode(plugInEntries(FIRST, "firstFactory"));
    const CFPlugInRef b = withCode(factories(stringEntry(FIRST, "secondFactory") + stringEntry(SECOND, "secondFactory"))
            + types(typeEntry(TYPE, {FIRST, SECOND}) + typeEntry(OTHER_TYPE, {FIRST})),
        "b.bundle");
    EXPECT_EQ(factoriesOf(TYPE, a), Texts{FIRST});
    EXPECT_EQ(factoriesOf(TYPE, b), Texts{SECOND});
    EXPECT_EQ(factoriesOf(OTHER_TYPE, a), Texts{"null"}) << "nor does the other's factory get its types";
    const void* const instance = CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(TYPE));
    EXPECT_EQ(instance, datumOf<int>(a, CFSTR("instanceOfFirst")));
    EXPECT_NE(instance, nullptr);

    CFRelease(b);
    EXPECT_EQ(factoriesOf(TYPE, a), Texts{FIRST}) << "the one that ended took nothing with it";
}

TEST_F(CFPlugIn, TheArrayOfFactoriesIsTheCallers)
{
    const Owned plugIn = withoutCode(plugInEntries(FIRST, "f"));
    const std::size_t before = liveReferences();
    const CFArrayRef array = CFPlugInFindFactoriesForPlugInTypeInPlugIn(uuid(TYPE), plugIn);
    EXPECT_EQ(CFArrayGetCount(array), 1);
    EXPECT_GT(liveReferences(), before);
    CFRelease(array);
    EXPECT_EQ(liveReferences(), before);
}

TEST_F(CFPlugIn, MakesTheInstanceThatItsFactoryReturns)
{
    const Owned plugIn = withCode(plugInEntries(FIRST, "firstFactory"));
    const void* const instance = CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(TYPE));
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(instance, datumOf<int>(plugIn, CFSTR("instanceOfFirst")));
    EXPECT_EQ(*datumOf<CFUUIDRef>(plugIn, CFSTR("typeAskedFor")), uuid(TYPE)) << "the type, not the factory's id";
}

TEST_F(CFPlugIn, HandsTheAllocatorOn)
{
    const Owned plugIn = withCode(plugInEntries(FIRST, "factoryOfAllocators"));
    EXPECT_EQ(CFPlugInInstanceCreate(kCFAllocatorSystemDefault, uuid(FIRST), uuid(TYPE)), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFPlugInInstanceCreate(kCFAllocatorDefault, uuid(FIRST), uuid(TYPE)), nullptr);
}

TEST_F(CFPlugIn, MakesNoInstanceWithoutAFactoryForTheType)
{
    const CFPlugInRef plugIn = withCode(plugInEntries(FIRST, "firstFactory"));
    EXPECT_EQ(CFPlugInInstanceCreate(nullptr, uuid(SECOND), uuid(TYPE)), nullptr) << "unknown factory";
    EXPECT_EQ(CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(OTHER_TYPE)), nullptr) << "not for this type";
    EXPECT_EQ(CFPlugInInstanceCreate(nullptr, uuid(TYPE), uuid(FIRST)), nullptr) << "the wrong way round";
    CFRelease(plugIn);
    EXPECT_EQ(CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(TYPE)), nullptr) << "no longer registered";
}

TEST_F(CFPlugIn, MakesNoInstanceWithoutAFunctionThatGivesOne)
{
    for (const char* const function : {"noFactory", "", "malloc", "CFRelease", "refusingFactory"}) {
        const Owned plugIn = withCode(plugInEntries(FIRST, function));
        EXPECT_EQ(factoriesOf(TYPE, plugIn), Texts{FIRST}) << function;
        EXPECT_EQ(CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(TYPE)), nullptr) << function;
    }
    const Owned withoutAny = withoutCode(plugInEntries(FIRST, "firstFactory"), "b.bundle");
    EXPECT_EQ(CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(TYPE)), nullptr);
}

TEST_F(CFPlugIn, RemovingAnInstanceThatWasNotCountedHasNoEffect)
{
    const Owned plugIn = withCode(plugInEntries(FIRST, "firstFactory"));
    const std::size_t before = liveReferences();
    for (const std::string& id : {FIRST, FIRST, SECOND})
        CFPlugInRemoveInstanceForFactory(uuid(id));
    EXPECT_EQ(liveReferences(), before);
    EXPECT_EQ(factoriesOf(TYPE, plugIn), Texts{FIRST});
    EXPECT_NE(CFPlugInInstanceCreate(nullptr, uuid(FIRST), uuid(TYPE)), nullptr);
}

TEST_F(CFPlugIn, ThePlugInsCallsAreTraced)
{
    const Owned plugIn = withCode(plugInEntries(FIRST, "callingFactory"));
    const CFUUIDRef factory = uuid(FIRST);
    const CFUUIDRef type = uuid(TYPE);
    Texts lines;
    Toolbox::SetTrace([&](const std::string& line) { lines.push_back(line.substr(0, line.find('('))); });
    CFPlugInInstanceCreate(nullptr, factory, type);
    Toolbox::SetTrace(nullptr);
    EXPECT_EQ(lines, Texts({"CFPlugInInstanceCreate", "CFEqual", "CFPlugInInstanceCreate"}));
}

}  // namespace
