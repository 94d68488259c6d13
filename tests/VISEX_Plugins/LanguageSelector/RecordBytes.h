// A record in which every byte is known, so that a test sees each one that changes.

#ifndef TESTS_VISEX_PLUGINS_LANGUAGESELECTOR_RECORDBYTES_H
#define TESTS_VISEX_PLUGINS_LANGUAGESELECTOR_RECORDBYTES_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <array>
#include <cstring>

using RecordBytes = std::array<UInt8, sizeof(ExternParmBlock)>;

/// The bytes of `record`.
inline RecordBytes bytesOf(const ExternParmBlock& record)
{
    RecordBytes bytes;
    std::memcpy(bytes.data(), &record, bytes.size());
    return bytes;
}

/// The record of these bytes.
inline ExternParmBlock recordOf(const RecordBytes& bytes)
{
    ExternParmBlock record;
    std::memcpy(&record, bytes.data(), bytes.size());
    return record;
}

/// A record with this message and current language. All its other bytes differ from those beside them.
inline ExternParmBlock recordWith(SInt16 message, UInt32 currentLanguage)
{
    RecordBytes bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<UInt8>(37 * i + 11);
    ExternParmBlock record = recordOf(bytes);
    record.message = message;
    record.currentLanguage = currentLanguage;
    return record;
}

#endif
