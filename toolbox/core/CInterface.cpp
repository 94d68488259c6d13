#include <Toolbox/Application.h>
#include <Toolbox/CInterface.h>
#include <Toolbox/CallReport.h>
#include <Toolbox/Displays.h>

#include <string>

Boolean ToolboxSetMainBundle(const char* folder)
{
    return Toolbox::SetMainBundle(folder);
}

void ToolboxSetFrameworksFolder(const char* folder)
{
    Toolbox::SetFrameworksFolder(folder);
}

Boolean ToolboxAskTheUser()
{
    if (Toolbox::UseScreenDisplayIfAny())
        return true;
    if (!Toolbox::TerminalAnswers())
        return false;
    Toolbox::UseTerminalDisplay();
    return true;
}

void ToolboxTellReport(void (*tell)(const char* line))
{
    const Toolbox::CallReport report = Toolbox::TakeReport();
    for (const std::string& remark : report.remarks)
        tell(remark.c_str());
    if (!report.displayProblem.empty())
        tell(report.displayProblem.c_str());
}
