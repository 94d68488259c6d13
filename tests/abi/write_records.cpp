// The record that the external leaves for every current language and every answer, one after another: written to
// standard output, or compared with those in a file, which the same program wrote on another machine.
//
// usage: write_records [FILE]

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"
#include "tests/support/RecordDifferences.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

const UInt32 CURRENT_LANGUAGES[] = {0, 1, 2, 3, 4, 6, 11, 12, 0x00010002, 0x02000000, 0xFFFFFFFF};
const SInt32 ITEMS[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7};
const SInt16 MESSAGES[] = {-32768, 0, 999, 1000, 1001, 32767};

struct Call {
    SInt16 message;
    UInt32 currentLanguage;
    SInt32 item;  // chosen before the command is sent
    UInt32 command;
};

std::vector<Call> calls()
{
    std::vector<Call> all;
    for (const SInt16 message : MESSAGES) {
        for (const UInt32 currentLanguage : CURRENT_LANGUAGES) {
            for (const SInt32 item : ITEMS) {
                all.push_back({message, currentLanguage, item, kHICommandOK});
                all.push_back({message, currentLanguage, item, kHICommandCancel});
            }
        }
    }
    return all;
}

std::string recordAfter(const Call& call)
{
    ToolboxDouble::Reset();
    ToolboxDouble::InModalLoop({ToolboxDouble::Act::Choose(call.item), ToolboxDouble::Act::Command(call.command)});
    ExternParmBlock record = recordWith(call.message, call.currentLanguage);
    XCodMain(&record);
    const RecordBytes bytes = bytesOf(record);
    return std::string(bytes.begin(), bytes.end());
}

int write()
{
    for (const Call& call : calls()) {
        const std::string record = recordAfter(call);
        std::fwrite(record.data(), record.size(), 1, stdout);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}

int compare(const char* file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string others(std::istreambuf_iterator<char>(stream), {});
    const std::size_t size = calls().size() * sizeof(ExternParmBlock);
    if (others.size() != size) {
        std::printf("'%s' has %zu bytes, and should have %zu\n", file, others.size(), size);
        return 1;
    }
    int differing = 0;
    std::size_t begin = 0;
    for (const Call& call : calls()) {
        const std::string other = others.substr(begin, sizeof(ExternParmBlock));
        begin += sizeof(ExternParmBlock);
        const std::string differences = recordDifferences(other, recordAfter(call));
        if (differences.empty())
            continue;
        ++differing;
        std::printf("Message %d, current language %u, item %d, %s:\n%s", static_cast<int>(call.message),
            static_cast<unsigned>(call.currentLanguage), static_cast<int>(call.item),
            call.command == kHICommandOK ? "OK" : "Cancel", differences.c_str());
    }
    std::printf("%zu records were compared, %d differ\n", calls().size(), differing);
    return differing == 0 ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments)
{
    return argumentCount > 1 ? compare(arguments[1]) : write();
}
