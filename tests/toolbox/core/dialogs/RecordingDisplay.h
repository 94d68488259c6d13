// What the tests of alerts share: a display that answers as it is told and keeps what it was shown.

#ifndef TESTS_TOOLBOX_CORE_DIALOGS_RECORDINGDISPLAY_H
#define TESTS_TOOLBOX_CORE_DIALOGS_RECORDINGDISPLAY_H

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/dialogs/Display.h"

#include <Toolbox/Displays.h>
#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

/// What a RecordingDisplay was shown, and the button that it answers with.
struct AlertRecord {
    std::vector<Toolbox::Alert> shown;
    SInt16 answer = 1;
};

class RecordingDisplay : public Toolbox::Display {
public:
    explicit RecordingDisplay(AlertRecord& record)
        : m_record(record)
    {
    }

    bool runWindow(Toolbox::Window&, QString*) override { return false; }

    SInt16 runAlert(const Toolbox::Alert& alert) override
    {
        m_record.shown.push_back(alert);
        return m_record.answer;
    }

private:
    AlertRecord& m_record;
};

/// How many objects of each kind are alive, without the kinds that have none.
inline std::map<std::string, std::size_t> liveObjects()
{
    std::map<std::string, std::size_t> alive;
    for (const auto& [kind, count] : Toolbox::CountLiveObjects())
        if (count != 0)
            alive[kind] = count;
    return alive;
}

/// Shows alerts to a record, and checks that a test leaves nothing behind.
class AlertTest : public testing::Test {
protected:
    AlertTest()
    {
        Toolbox::TakeReport();
        Toolbox::setCurrentDisplay(std::make_unique<RecordingDisplay>(m_record));
    }

    ~AlertTest() override
    {
        Toolbox::UseUnattendedDisplay({});
        EXPECT_EQ(liveObjects(), m_before);
    }

    std::vector<Toolbox::Alert>& shown() { return m_record.shown; }
    const Toolbox::Alert& lastShown() { return m_record.shown.at(m_record.shown.size() - 1); }
    void answerWith(SInt16 button) { m_record.answer = button; }

private:
    const std::map<std::string, std::size_t> m_before = liveObjects();
    AlertRecord m_record;
};

#endif
