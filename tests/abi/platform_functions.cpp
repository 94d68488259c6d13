// The platform's functions, by signature, as the Mac's headers declare them: what compiles against the toolbox's
// headers then compiles against the Mac's.

#include <Carbon/Carbon.h>
#include <Security/Authorization.h>

#include <type_traits>

namespace {

template <typename Declared, typename Function> constexpr bool takes(Function*)
{
    return std::is_same_v<Function, Declared>;
}

}  // namespace

// Core Foundation
static_assert(takes<void(CFTypeRef)>(CFRelease));
static_assert(takes<Boolean(CFTypeRef, CFTypeRef)>(CFEqual));
static_assert(takes<CFIndex(CFArrayRef)>(CFArrayGetCount));
static_assert(takes<const void*(CFArrayRef, CFIndex)>(CFArrayGetValueAtIndex));
static_assert(takes<CFUUIDRef(CFAllocatorRef, UInt8, UInt8, UInt8, UInt8, UInt8, UInt8, UInt8, UInt8, UInt8, UInt8,
        UInt8, UInt8, UInt8, UInt8, UInt8, UInt8)>(CFUUIDGetConstantUUIDWithBytes));
static_assert(takes<CFUUIDRef(CFAllocatorRef, CFUUIDBytes)>(CFUUIDCreateFromUUIDBytes));
static_assert(takes<CFStringRef(CFAllocatorRef, const char*, CFStringEncoding)>(CFStringCreateWithCString));
static_assert(takes<CFStringRef(CFAllocatorRef, const UniChar*, CFIndex)>(CFStringCreateWithCharacters));
static_assert(takes<ConstStringPtr(CFStringRef, CFStringEncoding)>(CFStringGetPascalStringPtr));
static_assert(takes<CFURLRef(CFAllocatorRef, const FSRef*)>(CFURLCreateFromFSRef));
static_assert(takes<Boolean(CFURLRef, FSRef*)>(CFURLGetFSRef));
static_assert(takes<CFURLRef(CFAllocatorRef, const UInt8*, CFIndex, Boolean)>(CFURLCreateFromFileSystemRepresentation));
static_assert(takes<CFURLRef(CFAllocatorRef, CFURLRef, CFStringRef, Boolean)>(CFURLCreateCopyAppendingPathComponent));
static_assert(takes<Boolean(CFURLRef, Boolean, UInt8*, CFIndex)>(CFURLGetFileSystemRepresentation));

// Bundles and plug-ins
static_assert(takes<CFBundleRef()>(CFBundleGetMainBundle));
static_assert(takes<CFBundleRef(CFAllocatorRef, CFURLRef)>(CFBundleCreate));
static_assert(takes<Boolean(CFBundleRef)>(CFBundleLoadExecutable));
static_assert(takes<void*(CFBundleRef, CFStringRef)>(CFBundleGetFunctionPointerForName));
static_assert(takes<CFURLRef(CFBundleRef, CFStringRef, CFStringRef, CFStringRef)>(CFBundleCopyResourceURL));
static_assert(takes<CFURLRef(CFBundleRef)>(CFBundleCopyBuiltInPlugInsURL));
static_assert(takes<CFPlugInRef(CFAllocatorRef, CFURLRef)>(CFPlugInCreate));
static_assert(takes<CFArrayRef(CFUUIDRef, CFPlugInRef)>(CFPlugInFindFactoriesForPlugInTypeInPlugIn));
static_assert(takes<void*(CFAllocatorRef, CFUUIDRef, CFUUIDRef)>(CFPlugInInstanceCreate));
static_assert(takes<void(CFUUIDRef)>(CFPlugInRemoveInstanceForFactory));

// Memory, files, resources
static_assert(takes<Ptr(Size)>(NewPtr));
static_assert(takes<void(Ptr)>(DisposePtr));
static_assert(takes<Size(Handle)>(GetHandleSize));
static_assert(takes<void(Handle)>(HLock));
static_assert(takes<void(Handle)>(HUnlock));
static_assert(takes<void(const void*, void*, Size)>(BlockMoveData));
static_assert(takes<Boolean(const void*, long)>(BitTst));
static_assert(takes<OSErr(short, OSType, Boolean, FSRef*)>(FSFindFolder));
static_assert(takes<OSErr(const FSRef*, UniCharCount, const UniChar*, SInt8, SInt16*)>(FSOpenResourceFile));
static_assert(takes<void(short)>(CloseResFile));
static_assert(takes<Handle(ResType, short)>(GetResource));
static_assert(takes<void(Handle)>(ReleaseResource));
static_assert(takes<void(Handle)>(ChangedResource));

// Text encodings
static_assert(takes<TextEncoding(TextEncodingBase, TextEncodingVariant, TextEncodingFormat)>(CreateTextEncoding));
static_assert(takes<OSStatus(TextEncoding, TextToUnicodeInfo*)>(CreateTextToUnicodeInfoByEncoding));
static_assert(takes<OSStatus(TextEncoding, UnicodeToTextInfo*)>(CreateUnicodeToTextInfoByEncoding));
static_assert(
    takes<OSStatus(TextToUnicodeInfo, ByteCount, ConstLogicalAddress, OptionBits, ItemCount, const ByteOffset*,
        ItemCount*, ByteOffset*, ByteCount, ByteCount*, ByteCount*, UniChar*)>(ConvertFromTextToUnicode));
static_assert(takes<OSStatus(UnicodeToTextInfo, ByteCount, const UniChar*, OptionBits, ItemCount, const ByteOffset*,
        ItemCount*, ByteOffset*, ByteCount, ByteCount*, ByteCount*, LogicalAddress)>(ConvertFromUnicodeToText));

// Nibs, windows, controls, events
static_assert(takes<OSStatus(CFStringRef, IBNibRef*)>(CreateNibReference));
static_assert(takes<OSStatus(IBNibRef, CFStringRef, WindowRef*)>(CreateWindowFromNib));
static_assert(takes<void(IBNibRef)>(DisposeNibReference));
static_assert(takes<void(WindowRef)>(ShowWindow));
static_assert(takes<void(WindowRef)>(HideWindow));
static_assert(takes<void(WindowRef)>(DisposeWindow));
static_assert(takes<OSStatus(WindowRef, const ControlID*, ControlRef*)>(GetControlByID));
static_assert(takes<SInt32(ControlRef)>(GetControl32BitValue));
static_assert(takes<void(ControlRef, SInt32)>(SetControl32BitValue));
static_assert(takes<EventTargetRef(WindowRef)>(GetWindowEventTarget));
static_assert(takes<EventHandlerUPP(EventHandlerProcPtr)>(NewEventHandlerUPP));
static_assert(takes<void(EventHandlerUPP)>(DisposeEventHandlerUPP));
static_assert(takes<OSStatus(EventTargetRef, EventHandlerUPP, UInt32, const EventTypeSpec*, void*, EventHandlerRef*)>(
    InstallEventHandler));
static_assert(takes<UInt32(EventRef)>(GetEventClass));
static_assert(takes<UInt32(EventRef)>(GetEventKind));
static_assert(takes<OSStatus(EventRef, EventParamName, EventParamType, EventParamType*, UInt32, UInt32*, void*)>(
    GetEventParameter));
static_assert(takes<OSStatus(WindowRef)>(RunAppModalLoopForWindow));
static_assert(takes<OSStatus(WindowRef)>(QuitAppModalLoopForWindow));

// Alerts
static_assert(takes<DialogItemIndex(SInt16, ModalFilterUPP)>(StopAlert));
static_assert(
    takes<OSErr(AlertType, ConstStr255Param, ConstStr255Param, const AlertStdAlertParamRec*, SInt16*)>(StandardAlert));
static_assert(takes<OSStatus(AlertType, CFStringRef, CFStringRef, const AlertStdCFStringAlertParamRec*, DialogRef*)>(
    CreateStandardAlert));
static_assert(takes<OSStatus(DialogRef, ModalFilterUPP, DialogItemIndex*)>(RunStandardAlert));

// Authorization Services
static_assert(
    takes<OSStatus(const AuthorizationRights*, const AuthorizationEnvironment*, AuthorizationFlags, AuthorizationRef*)>(
        AuthorizationCreate));
static_assert(takes<OSStatus(AuthorizationRef, const AuthorizationRights*, const AuthorizationEnvironment*,
        AuthorizationFlags, AuthorizationRights**)>(AuthorizationCopyRights));
static_assert(takes<OSStatus(AuthorizationItemSet*)>(AuthorizationFreeItemSet));
