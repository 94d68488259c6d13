#include "host/ExternalCall.h"

#include "host/ChosenLanguage.h"

#include <Toolbox/Displays.h>

namespace Host {

Report callExternal(PlugIn& plugIn, Record& record, const Toolbox::TraceSink& trace)
{
    ExternParmBlock& block = record.block();
    Report report;
    report.message = block.message;
    report.current = block.currentLanguage;
    report.chosenBefore = block.chosenLanguage;
    report.flagsBefore = block.resultFlags;

    ChosenLanguage chosen(block);
    Toolbox::SetTrace(trace);
    plugIn.call(block);
    Toolbox::SetTrace(nullptr);

    report.chosen = chosen.settle();
    report.flagsAfter = block.resultFlags;
    report.alerts = Toolbox::ShownAlerts();
    report.answerWasUnfit = Toolbox::AnswerWasUnfit();
    return report;
}

}  // namespace Host
