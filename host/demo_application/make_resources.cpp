// Writes the resource file of the demo application: make_resources FILE.

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "host/demo_application/ResourceFileWriter.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <ios>

namespace {

using namespace Resources;

// Nothing asks for the administrator's right here, and nothing is known of the other bytes.
constexpr std::size_t CALL_SIZE = 512;

constexpr Rectangle ALERT_BOUNDS{40, 40, 160, 440};

const std::vector<DialogItem> ALERT_ITEMS{
    {DialogItem::Button, {88, 310, 108, 380}, "OK"},
    {DialogItem::StaticText, {12, 74, 76, 380},
        "The language selection was called with a message that it does not serve. "
        "The installation goes on in the current language."},
};

Bytes demoResources()
{
    ResourceFileWriter file;
    file.add(CALL_RESOURCE_TYPE, CALL_RESOURCE_ID, Bytes(CALL_SIZE, 0));
    file.add('ALRT', UNKNOWN_MESSAGE_ALERT, alertTemplate(ALERT_BOUNDS, UNKNOWN_MESSAGE_ALERT));
    file.add('DITL', UNKNOWN_MESSAGE_ALERT, dialogItemList(ALERT_ITEMS));
    return file.bytes();
}

void writeFile(const char* name, const Bytes& bytes)
{
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fputs("usage: make_resources FILE\n", stderr);
        return 2;
    }
    try {
        writeFile(arguments[1], demoResources());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_resources: %s: %s\n", arguments[1], error.what());
        return 1;
    }
    return 0;
}
