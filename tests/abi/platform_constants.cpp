// The platform's constants, by value, as the Mac's headers define them.

#include <Carbon/Carbon.h>
#include <Security/Authorization.h>

static_assert(kEventClassCommand == 0x636D6473 && kEventCommandProcess == 1);
static_assert(kEventParamDirectObject == 0x2D2D2D2D && typeHICommand == 0x68636D64);
static_assert(kHICommandOK == 0x6F6B2020 && kHICommandCancel == 0x6E6F7421);
static_assert(kHICommandFromMenu == 1 && kHICommandFromControl == 2 && kHICommandFromWindow == 4);

static_assert(kAlertStopAlert == 0 && kAlertNoteAlert == 1 && kAlertCautionAlert == 2 && kAlertPlainAlert == 3);
static_assert(kAlertDefaultOKText == -1 && kAlertDefaultCancelText == -1);
static_assert(kAlertStdAlertOKButton == 1 && kAlertStdAlertCancelButton == 2);
static_assert(kAlertStdAlertOtherButton == 3 && kAlertStdAlertHelpButton == 4);
static_assert(kWindowDefaultPosition == 0 && kStdCFStringAlertVersionOne == 1);

static_assert(kOnAppropriateDisk == -32767 && kSystemDomain == -32766);
static_assert(kFrameworksFolderType == 0x6672616D && kCreateFolder == 1);

static_assert(kTextEncodingMacRoman == 0 && kTextEncodingDefaultVariant == 0 && kTextEncodingDefaultFormat == 0);
static_assert(kCFStringEncodingMacRoman == 0 && kCFStringEncodingASCII == 0x0600);
static_assert(kCFStringEncodingUTF8 == 0x08000100);
static_assert(fsCurPerm == 0 && fsRdPerm == 1);

static_assert(noErr == 0 && paramErr == -50 && memFullErr == -108);
static_assert(resNotFound == -192 && mapReadErr == -199);
static_assert(nsvErr == -35 && ioErr == -36 && eofErr == -39 && fnfErr == -43 && permErr == -54);
static_assert(errFSBadFSRef == -1401 && errFSBadForkName == -1402 && errFSForkNotFound == -1409);
static_assert(tmfoErr == -42 && kResFileNotOpened == -1 && invalidFolderTypeErr == -4273);
static_assert(cfragNoSymbolErr == -2802 && coreFoundationUnknownErr == -4960);
static_assert(errInvalidWindowRef == -5600);
static_assert(windowAppModalStateAlreadyExistsErr == -5617 && windowNoAppModalStateErr == -5618);
static_assert(errUnknownControl == -30584);
static_assert(eventHandlerAlreadyInstalledErr == -9866 && eventInternalErr == -9868);
static_assert(eventParameterNotFoundErr == -9870 && eventNotHandledErr == -9874);
static_assert(kIBCarbonRuntimeCantFindNibFile == -10960);
static_assert(kIBCarbonRuntimeObjectNotOfRequestedType == -10961 && kIBCarbonRuntimeCantFindObject == -10962);
static_assert(kTextUnsupportedEncodingErr == -8738 && kTECCorruptConverterErr == -8748);
static_assert(kTECBufferBelowMinimumSizeErr == -8750 && kTECUnmappableElementErr == -8754);
static_assert(kTECOutputBufferFullStatus == -8785 && kTECPartialCharErr == -8753);
static_assert(static_cast<UInt32>(E_NOINTERFACE) == 0x80000004 && S_OK == 0);

static_assert(kAuthorizationFlagDefaults == 0 && errAuthorizationSuccess == 0);
static_assert(errAuthorizationInvalidSet == -60001 && errAuthorizationInvalidRef == -60002);
static_assert(errAuthorizationInvalidPointer == -60004 && errAuthorizationDenied == -60005);
static_assert(errAuthorizationInteractionNotAllowed == -60007 && errAuthorizationInvalidFlags == -60011);
