#include "host/ChosenLanguage.h"

namespace Host {

namespace {

constexpr UInt16 NO_LANGUAGE = 0xFFFF;

}  // namespace

ChosenLanguage::ChosenLanguage(ExternParmBlock& block)
    : m_block(block)
    , m_own(block.chosenLanguage)
{
    block.chosenLanguage = NO_LANGUAGE;
}

std::optional<UInt16> ChosenLanguage::settle()
{
    const UInt16 written = m_block.chosenLanguage;
    if (written != NO_LANGUAGE)
        return written;
    m_block.chosenLanguage = m_own;
    return std::nullopt;
}

}  // namespace Host
