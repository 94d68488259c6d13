// What the tests of alerts share: a display that answers as it is told and keeps what it was shown.

#ifndef TESTS_TOOLBOX_CORE_DIALOGS_RECORDINGDISPLAY_H
#define TESTS_TOOLBOX_CORE_DIALOGS_RECORDINGDISPLAY_H

#include "tests/toolbox/core/dialogs/TestWindow.h"

/// Shows alerts to itself, and answers them with the button `answer`.
class AlertTest : public WindowTest {
protected:
    AlertTest() { Toolbox::setCurrentDisplay(std::make_unique<RecordingDisplay>(*this)); }

    std::vector<Toolbox::Alert> shown;
    SInt16 answer = 1;

private:
    class RecordingDisplay : public Toolbox::Display {
    public:
        explicit RecordingDisplay(AlertTest& test)
            : m_test(test)
        {
        }

        bool runWindow(Toolbox::Window&, QString*) override { return false; }

        SInt16 runAlert(const Toolbox::Alert& alert) override
        {
            m_test.shown.push_back(alert);
            return m_test.answer;
        }

    private:
        AlertTest& m_test;
    };
};

/// Its type, its texts, and its buttons with the keys that press them.
inline std::string inWords(const Toolbox::Alert& alert)
{
    std::string words = std::to_string(alert.type) + ": " + alert.text.toStdString() + " (";
    words += alert.explanation.toStdString() + ")";
    for (const Toolbox::AlertButton& each : alert.buttons) {
        words += ", " + std::to_string(each.number) + ' ' + each.title.toStdString();
        words += each.enabled ? "" : " disabled";
        words += each.number == alert.defaultButton ? " Return" : "";
        words += each.number == alert.cancelButton ? " Escape" : "";
    }
    return words;
}

#endif
