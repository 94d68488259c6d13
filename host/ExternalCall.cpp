#include "host/ExternalCall.h"

#include "host/ChosenLanguage.h"
#include "host/StandardStreams.h"

#include <Toolbox/Displays.h>
#include <Toolbox/Trace.h>

namespace Host {

Report callExternal(PlugIn& plugIn, Record& record, bool trace)
{
    ExternParmBlock& block = record.block();
    Report report;
    report.message = block.message;
    report.current = block.currentLanguage;
    report.chosenBefore = block.chosenLanguage;
    report.flagsBefore = block.resultFlags;

    ChosenLanguage chosen(block);
    if (trace)
        Toolbox::SetTrace(complain);
    plugIn.call(block);
    Toolbox::SetTrace(nullptr);

    report.chosen = chosen.settle();
    report.flagsAfter = block.resultFlags;
    report.alerts = Toolbox::ShownAlerts();
    report.answerWasUnfit = Toolbox::AnswerWasUnfit();
    return report;
}

}  // namespace Host
