// The names of the platform's types, by width and signedness, as the Mac's headers declare them for the 32-bit target.

#include <Carbon/Carbon.h>
#include <Security/Authorization.h>

#include <type_traits>

namespace {

template <typename Type, typename Declared> constexpr bool is = std::is_same_v<Type, Declared>;

}  // namespace

static_assert(is<UInt8, unsigned char> && is<SInt8, signed char>);
static_assert(is<UInt16, unsigned short> && is<SInt16, short>);
static_assert(is<UInt32, unsigned long> && is<SInt32, long>);
static_assert(is<Boolean, unsigned char>);
static_assert(is<OSErr, SInt16> && is<OSStatus, SInt32>);
static_assert(is<FourCharCode, UInt32> && is<OSType, UInt32> && is<ResType, UInt32>);
static_assert(is<EventParamName, UInt32> && is<EventParamType, UInt32>);
static_assert(is<Size, long> && is<Ptr, char*> && is<Handle, char**>);
static_assert(is<ConstStringPtr, const unsigned char*> && is<ConstStr255Param, const unsigned char*>);
static_assert(is<ItemCount, UInt32> && is<ByteCount, UInt32> && is<ByteOffset, UInt32>);
static_assert(is<OptionBits, UInt32> && is<UniCharCount, UInt32> && is<UniChar, UInt16>);
static_assert(is<LogicalAddress, void*> && is<ConstLogicalAddress, const void*> && is<LPVOID, void*>);
static_assert(is<TextEncoding, UInt32> && is<TextEncodingBase, UInt32>);
static_assert(is<TextEncodingVariant, UInt32> && is<TextEncodingFormat, UInt32>);
static_assert(is<MenuCommand, UInt32> && is<MenuItemIndex, UInt16>);
static_assert(is<DialogItemIndex, SInt16> && is<AlertType, SInt16>);
static_assert(is<HRESULT, SInt32> && is<ULONG, UInt32> && is<REFIID, CFUUIDBytes>);
static_assert(is<CFIndex, SInt32> && is<CFStringEncoding, UInt32> && is<AuthorizationFlags, UInt32>);
static_assert(is<CFTypeRef, const void*> && is<AuthorizationString, const char*>);

static_assert(is<CFAllocatorRef, const __CFAllocator*> && is<CFStringRef, const __CFString*>);
static_assert(is<CFURLRef, const __CFURL*> && is<CFArrayRef, const __CFArray*> && is<CFUUIDRef, const __CFUUID*>);
static_assert(is<CFBundleRef, __CFBundle*> && is<CFPlugInRef, CFBundleRef>);
static_assert(is<WindowRef, OpaqueWindowPtr*> && is<DialogRef, OpaqueDialogPtr*>);
static_assert(is<ControlRef, OpaqueControlRef*> && is<MenuRef, OpaqueMenuRef*> && is<IBNibRef, OpaqueIBNibRef*>);
static_assert(is<EventRef, OpaqueEventRef*> && is<EventTargetRef, OpaqueEventTargetRef*>);
static_assert(is<EventHandlerRef, OpaqueEventHandlerRef*> && is<EventHandlerCallRef, OpaqueEventHandlerCallRef*>);
static_assert(is<TextToUnicodeInfo, OpaqueTextToUnicodeInfo*> && is<UnicodeToTextInfo, OpaqueUnicodeToTextInfo*>);
static_assert(is<AuthorizationRef, const AuthorizationOpaqueRef*>);

// Where code is Mach-O, a universal procedure pointer is the function's own.
static_assert(is<EventHandlerUPP, OSStatus (*)(EventHandlerCallRef, EventRef, void*)>);
static_assert(is<ModalFilterUPP, Boolean (*)(DialogRef, EventRecord*, DialogItemIndex*)>);
static_assert(is<CFPlugInFactoryFunction, void* (*)(CFAllocatorRef, CFUUIDRef)>);
