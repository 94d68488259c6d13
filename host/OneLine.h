// Texts from elsewhere, such as file names and the texts of alerts, made fit to stand within a line.

#ifndef HOST_ONELINE_H
#define HOST_ONELINE_H

#include <string>

namespace Host {

/// `text` with a blank for each control character: it neither ends the line nor tells a terminal anything.
std::string oneLine(std::string text);

}  // namespace Host

#endif
