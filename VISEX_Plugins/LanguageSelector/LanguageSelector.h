// The face of the external: what the VISE X installer finds when it has loaded the bundle.
//
// The installer asks the factory, MyFactory, for an instance, calls XCodMain through the instance's table with its
// record, and releases the instance. Everything happens inside these calls, on the thread that makes them.

#ifndef VISEX_PLUGINS_LANGUAGESELECTOR_LANGUAGESELECTOR_H
#define VISEX_PLUGINS_LANGUAGESELECTOR_LANGUAGESELECTOR_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <Carbon/Carbon.h>

#include <cstddef>

extern "C" {

/// The functions of an instance: the three that every plug-in has, in the manner of COM, and the main entry.
struct XcodFunctionBlock {
    void* reserved;  // null
    HRESULT (*QueryInterface)(void* instance, REFIID iid, LPVOID* ppv);
    ULONG (*AddRef)(void* instance);
    ULONG (*Release)(void* instance);
    void (*XCodMain)(ExternParmBlock* block);
};

/// An instance, of which the installer knows the first word only.
struct XcodInstance {
    const XcodFunctionBlock* functions;
    CFUUIDRef factoryID;
    SInt32 referenceCount;
};

/// A new instance with one reference, the caller's, to be given to myRelease; null unless `typeID` is
/// 5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8. The allocator is not used. Memory must not have run out.
void* MyFactory(CFAllocatorRef allocator, CFUUIDRef typeID);

/// Puts the instance, with one more reference, into `*ppv` and returns S_OK if `iid` is the external's interface,
/// 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8, or IUnknown, 00000000-0000-0000-C000-000000000046. For any other, `*ppv` is
/// null and the result E_NOINTERFACE.
HRESULT myQueryInterface(void* instance, REFIID iid, LPVOID* ppv);

/// One more reference; returns their number.
ULONG myAddRef(void* instance);

/// One reference less; returns their number. The last one's release frees the instance, which must not be used again:
/// the count is not guarded.
ULONG myRelease(void* instance);

/// The main entry. For MESSAGE_SELECT_LANGUAGE, and if the administrator's right is there or not needed, the dialog;
/// for any other message, alert 5000 of the installer's and RESULT_FLAG_UNKNOWN_MESSAGE. A null record is ignored.
void XCodMain(ExternParmBlock* block);

/// The dialog alone, whatever the record's message: shows the record's current language in the pop-up and, if the
/// person presses OK, stores the one chosen. After Cancel nothing is stored. A language that the pop-up does not have
/// counts as English. A null record is ignored.
///
/// A failure is shown in a message box, ends the dialog where it stands and stores nothing. What has been made by then
/// is not taken down: without a window the nib stays open; without a handler the hidden window and the procedure
/// pointer stay; without a modal loop the shown window, its handler (whose state is gone) and the procedure pointer.
void LanguageSelector(ExternParmBlock* block);

/// What classic Mac OS called procedure information, for the main entry: no result, one parameter of four bytes.
extern const UInt32 ___procinfo;
}

static_assert(offsetof(XcodFunctionBlock, reserved) == 0 * sizeof(void*), "slot 1");
static_assert(offsetof(XcodFunctionBlock, QueryInterface) == 1 * sizeof(void*), "slot 2");
static_assert(offsetof(XcodFunctionBlock, AddRef) == 2 * sizeof(void*), "slot 3");
static_assert(offsetof(XcodFunctionBlock, Release) == 3 * sizeof(void*), "slot 4");
static_assert(offsetof(XcodFunctionBlock, XCodMain) == 4 * sizeof(void*), "slot 5");
static_assert(sizeof(XcodFunctionBlock) == 5 * sizeof(void*), "five words");

static_assert(offsetof(XcodInstance, functions) == 0 * sizeof(void*), "word 1");
static_assert(offsetof(XcodInstance, factoryID) == 1 * sizeof(void*), "word 2");
static_assert(offsetof(XcodInstance, referenceCount) == 2 * sizeof(void*), "word 3");
static_assert(sizeof(XcodInstance::referenceCount) == 4, "a whole word");
static_assert(sizeof(XcodInstance) == 3 * sizeof(void*), "three words");

#endif
