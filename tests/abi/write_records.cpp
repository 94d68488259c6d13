// Prints the record that the external leaves for every current language and every answer, byte by byte: the same on
// every machine.

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"

#include <cstdio>

namespace {

const UInt32 CURRENT_LANGUAGES[] = {0, 1, 2, 3, 4, 6, 11, 12, 0x00010002, 0x02000000, 0xFFFFFFFF};
const SInt32 ITEMS[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7};
const SInt16 MESSAGES[] = {-32768, 0, 999, 1000, 1001, 32767};

void printRecord(SInt16 message, UInt32 currentLanguage, SInt32 item, UInt32 command)
{
    ToolboxDouble::Reset();
    ToolboxDouble::InModalLoop({ToolboxDouble::Act::Choose(item), ToolboxDouble::Act::Command(command)});
    ExternParmBlock record = recordWith(message, currentLanguage);
    XCodMain(&record);

    std::printf("Message %d, current language %u, item %d, %s:", int{message}, static_cast<unsigned>(currentLanguage),
        static_cast<int>(item), command == kHICommandOK ? "OK" : "Cancel");
    int position = 0;
    for (const UInt8 byte : bytesOf(record)) {
        if (position % 32 == 0)
            std::printf("\n%5d:", position);
        std::printf(" %02X", unsigned{byte});
        ++position;
    }
    std::printf("\n");
}

}  // namespace

int main()
{
    for (const SInt16 message : MESSAGES) {
        for (const UInt32 currentLanguage : CURRENT_LANGUAGES) {
            for (const SInt32 item : ITEMS) {
                printRecord(message, currentLanguage, item, kHICommandOK);
                printRecord(message, currentLanguage, item, kHICommandCancel);
            }
        }
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
