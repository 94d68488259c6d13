// The factory and the instances that it makes.

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

namespace {

const XcodFunctionBlock gXcodFunctionBlock = {nullptr, myQueryInterface, myAddRef, myRelease, XCodMain};

CFUUIDRef factoryType()
{
    return CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8);
}

CFUUIDRef externalInterface()
{
    return CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x00, 0xD5, 0xFB, 0xFE, 0x3D, 0x3D, 0x40, 0xE2, 0x9D, 0xCB, 0x92, 0xED, 0x69, 0x58, 0x34, 0xF8);
}

CFUUIDRef unknownInterface()
{
    return CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);
}

}  // namespace

extern "C" {

void* MyFactory(CFAllocatorRef, CFUUIDRef typeID)
{
    if (!CFEqual(typeID, factoryType()))
        return nullptr;

    // The factory ID keeps whatever NewPtr left there: the factory is told the type, never its own ID, so that there is
    // none to retain and no instance to register. NewPtr's result is taken as it comes.
    XcodInstance* const instance = reinterpret_cast<XcodInstance*>(NewPtr(sizeof(XcodInstance)));
    instance->referenceCount = 1;
    instance->functions = &gXcodFunctionBlock;
    return instance;
}

HRESULT myQueryInterface(void* instance, REFIID iid, LPVOID* ppv)
{
    const CFUUIDRef wanted = CFUUIDCreateFromUUIDBytes(nullptr, iid);
    if (CFEqual(wanted, externalInterface()) || CFEqual(wanted, unknownInterface())) {
        static_cast<XcodInstance*>(instance)->functions->AddRef(instance);
        *ppv = instance;
        CFRelease(wanted);
        return S_OK;
    }
    *ppv = nullptr;
    CFRelease(wanted);
    return E_NOINTERFACE;
}

ULONG myAddRef(void* instance)
{
    return static_cast<ULONG>(++static_cast<XcodInstance*>(instance)->referenceCount);
}

ULONG myRelease(void* instance)
{
    XcodInstance* const released = static_cast<XcodInstance*>(instance);
    if (--released->referenceCount != 0)
        return static_cast<ULONG>(released->referenceCount);

    const CFUUIDRef factoryID = released->factoryID;
    DisposePtr(reinterpret_cast<Ptr>(released));
    if (factoryID != nullptr) {
        CFPlugInRemoveInstanceForFactory(factoryID);
        CFRelease(factoryID);
    }
    return 0;
}
}
