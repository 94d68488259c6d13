// What a call of the external came to, and how it is told: in words, or as JSON; and what went wrong around it.

#ifndef HOST_REPORT_H
#define HOST_REPORT_H

#include "host/Messages.h"
#include "host/Options.h"

#include <Toolbox/CallReport.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Host {

/// The fields of the record around a call, and what happened meanwhile.
struct Report {
    std::int16_t message = 0;
    std::uint32_t current = 0;            // the language code before the call; the external only reads it
    std::uint16_t chosenBefore = 0;       // what the field for the chosen language held
    std::optional<std::uint16_t> chosen;  // what the external wrote there, if it did
    std::uint32_t flagsBefore = 0;
    std::uint32_t flagsAfter = 0;
    DisplayKind display = DisplayKind::Unattended;
    Toolbox::CallReport toolbox;
};

/// What the process ends with after this call, if nothing else goes wrong.
ExitStatus statusOf(const Report& report);

/// The report in words, a line each: what it comes to, which whoever listens must not wait for, the record before, each
/// alert, and the record after.
std::string inWords(const Report& report);

/// The report as one JSON object, over several lines.
std::string inJson(const Report& report);

/// Says these on standard error, a line each; if none are given, those that the toolbox has made since its last report.
void tellRemarks(const std::vector<std::string>& remarks = Toolbox::TakeReport().remarks);

/// Says on standard error, a line each, what went wrong around the call with these options, or was met with on the way,
/// without making its answer worthless.
void tellCallProblems(const Options& options, const Toolbox::CallReport& report);

}  // namespace Host

#endif
