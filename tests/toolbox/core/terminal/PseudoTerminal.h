// A terminal without a screen, with a process on it that a test talks to as a person would.

#ifndef TESTS_TOOLBOX_CORE_TERMINAL_PSEUDOTERMINAL_H
#define TESTS_TOOLBOX_CORE_TERMINAL_PSEUDOTERMINAL_H

#include <functional>
#include <optional>
#include <string>

/// Runs `work` in a process whose controlling terminal this is, and which reports one line when it is done. It is ended
/// when it has computed for 20 seconds; what it waits for does not count.
class PseudoTerminal {
public:
    /// Starts `work` in the locale named `locale`. What it returns is the report.
    PseudoTerminal(const char* locale, const std::function<std::string()>& work, unsigned short columns = 0);

    /// Hangs up, and waits for the process.
    ~PseudoTerminal();

    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Waits until what the process has written since the last call ends in `end`; returns all that was written since
    /// then, with plain line feeds. A test fails if that does not come, and gets what did.
    std::string readUntil(const std::string& end);

    /// Types `keys`; "\n" is Return, "\x04" the end of input.
    void type(const std::string& keys);

    /// Types `keys`, and waits as readUntil does.
    std::string readAfter(const std::string& keys, const std::string& end)
    {
        type(keys);
        return readUntil(end);
    }

    /// Waits for `question`, types `keys`, and returns what the process then reports.
    std::optional<std::string> reportAfter(const std::string& question, const std::string& keys)
    {
        readUntil(question);
        return report(keys);
    }

    /// Lets the process go on, as a shell does that has stopped it.
    void resume();

    /// Lets the terminal go away.
    void hangUp();

    /// Types `keys`, and returns what the process reports; nothing when it ends without a report or does not end.
    std::optional<std::string> report(const std::string& keys = "");

private:
    int m_terminal = -1;
    int m_report = -1;
    int m_process = -1;
};

/// Runs `work` in a process without a terminal, and returns what it reports.
std::optional<std::string> reportWithoutTerminal(const std::function<std::string()>& work);

#endif
