#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include "VISEX_Plugins/LanguageSelector/AuthorizationGate.h"
#include "VISEX_Plugins/LanguageSelector/HostContract.h"

namespace {

const XcodFunctionBlock gXcodFunctionBlock = {nullptr, myQueryInterface, myAddRef, myRelease, XCodMain};

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

void XCodMain(ExternParmBlock* block)
{
    if (block == nullptr)
        return;
    if (block->message != MESSAGE_SELECT_LANGUAGE) {
        StopAlert(UNKNOWN_MESSAGE_ALERT, nullptr);
        block->resultFlags = block->resultFlags | RESULT_FLAG_UNKNOWN_MESSAGE;
        return;
    }
    if (!passAuthorizationGate())
        return;
    LanguageSelector(block);
}

// Two bits a parameter from bit 6 on, where 3 stands for four bytes; no result.
const UInt32 ___procinfo = 3 << 6;
}
