// Tells from the record itself whether the external wrote a chosen language.

#ifndef HOST_CHOSENLANGUAGE_H
#define HOST_CHOSENLANGUAGE_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <optional>

namespace Host {

/// Lives as long as a call. Any language that the external writes may be the one that the field holds already, so the
/// field holds a value that is no language while the call runs.
class ChosenLanguage {
public:
    /// Puts that value into the field.
    explicit ChosenLanguage(ExternParmBlock& block);

    /// What was written since then, or nothing; the field then has its own value again. To be asked once.
    std::optional<UInt16> settle();

private:
    ExternParmBlock& m_block;
    const UInt16 m_own;
};

}  // namespace Host

#endif
