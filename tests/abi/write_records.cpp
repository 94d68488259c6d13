// Writes, to standard output, the record that the external leaves for every current language and every answer, one
// after another. Built for two machines, the outputs are compared byte for byte.

#include <cstdio>

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"

namespace {

const UInt32 CURRENT_LANGUAGES[] = {0, 1, 2, 3, 4, 6, 11, 12, 0x00010002, 0x02000000, 0xFFFFFFFF};
const SInt32 ITEMS[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7};
const SInt16 MESSAGES[] = {-32768, 0, 999, 1000, 1001, 32767};

void writeRecord(SInt16 message, UInt32 currentLanguage, SInt32 item, UInt32 command)
{
    ToolboxDouble::Reset();
    ToolboxDouble::InModalLoop({ToolboxDouble::Choose(item), ToolboxDouble::Command(command)});
    ExternParmBlock record = recordWith(message, currentLanguage);
    XCodMain(&record);
    std::fwrite(&record, sizeof record, 1, stdout);
}

}  // namespace

int main()
{
    for (const SInt16 message : MESSAGES) {
        for (const UInt32 currentLanguage : CURRENT_LANGUAGES) {
            for (const SInt32 item : ITEMS) {
                writeRecord(message, currentLanguage, item, kHICommandOK);
                writeRecord(message, currentLanguage, item, kHICommandCancel);
            }
        }
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
