/* An installer's part, in C: calls the external once, and says which language was chosen.

   usage: installer_example APPLICATION EXTERNAL LANGUAGE [unattended] */

#include <Carbon/Carbon.h>
#include <CoreFoundation/CoreFoundation.h>
#include <Toolbox/CInterface.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { MESSAGE = 0, FLAGS = 8, CHOSEN = 582, CURRENT = 610, RECORD_SIZE = 614 };
enum { NOT_CHOSEN = 0xFFFF }; /* no language's code: tells OK on the current language from Cancel */

/* What an instance begins with. The rest of it is the external's. */
typedef struct {
    const struct {
        void* reserved;
        HRESULT (*QueryInterface)(void* instance, REFIID iid, LPVOID* result);
        ULONG (*AddRef)(void* instance);
        ULONG (*Release)(void* instance);
        void (*XCodMain)(unsigned char* record);
    } * functions;
} Instance;

static void put16(unsigned char* at, unsigned number)
{
    at[0] = (unsigned char)(number >> 8);
    at[1] = (unsigned char)number;
}

static void tell(const char* line)
{
    fprintf(stderr, "%s\n", line);
}

/* Null, and the instance gone, if it is no external of this kind. */
static Instance* askedForItsInterface(Instance* instance)
{
    const CFUUIDBytes interface = {
        0x00, 0xD5, 0xFB, 0xFE, 0x3D, 0x3D, 0x40, 0xE2, 0x9D, 0xCB, 0x92, 0xED, 0x69, 0x58, 0x34, 0xF8};
    void* external = NULL;
    const HRESULT result = instance->functions->QueryInterface(instance, interface, &external);
    if (result == E_NOINTERFACE)
        tell("The plug-in is of another kind.");
    instance->functions->Release(instance); /* the external, if given, is one reference more */
    return result == S_OK ? external : NULL;
}

static Instance* createInstance(const char* folder)
{
    const CFUUIDRef type = CFUUIDGetConstantUUIDWithBytes(
        NULL, 0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8);
    const CFURLRef url =
        CFURLCreateFromFileSystemRepresentation(NULL, (const UInt8*)folder, (CFIndex)strlen(folder), 1);
    const CFPlugInRef bundle = CFPlugInCreate(NULL, url); /* stays until the process ends */
    const CFArrayRef factories = CFPlugInFindFactoriesForPlugInTypeInPlugIn(type, bundle);
    if (CFArrayGetCount(factories) == 0)
        return NULL;
    Instance* const instance = CFPlugInInstanceCreate(NULL, (CFUUIDRef)CFArrayGetValueAtIndex(factories, 0), type);
    return instance == NULL ? NULL : askedForItsInterface(instance);
}

int main(int count, char** arguments)
{
    unsigned char record[RECORD_SIZE] = {0};
    if (count < 4 || !ToolboxSetMainBundle(arguments[1])) {
        tell("usage: installer_example APPLICATION EXTERNAL LANGUAGE [unattended]");
        return 2;
    }
    if (count == 4 && !ToolboxAskTheUser())
        tell("There is nobody to ask: what is shown is confirmed as it stands.");

    Instance* const instance = createInstance(arguments[2]);
    if (instance == NULL) {
        tell("The external cannot be loaded.");
        return 1;
    }
    put16(record + MESSAGE, 1000);
    put16(record + CHOSEN, NOT_CHOSEN);
    put16(record + CURRENT + 2, (unsigned)atoi(arguments[3]));
    instance->functions->XCodMain(record);
    instance->functions->Release(instance);
    ToolboxTellReport(tell);

    const unsigned chosen = (unsigned)record[CHOSEN] << 8 | record[CHOSEN + 1];
    if ((record[FLAGS + 3] & 1) != 0 || chosen == NOT_CHOSEN)
        printf("Nothing was chosen.\n");
    else
        printf("Language %u was chosen.\n", chosen);
    return 0;
}
