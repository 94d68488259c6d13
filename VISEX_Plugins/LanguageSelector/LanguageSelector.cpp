#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include "VISEX_Plugins/LanguageSelector/AuthorizationGate.h"
#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "VISEX_Plugins/LanguageSelector/LanguageDialog.h"

extern "C" {

// Two bits a parameter from bit 6 on, where 3 stands for four bytes; no result.
const UInt32 ___procinfo = 3 << 6;

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

void LanguageSelector(ExternParmBlock* block)
{
    if (block != nullptr)
        executeSelectLanguage(block);
}
}
