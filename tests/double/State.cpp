#include "tests/double/State.h"

namespace ToolboxDouble {

State& state()
{
    static State all;
    return all;
}

std::string numbered(const std::string& kind)
{
    return kind + std::to_string(++state().objectCounts[kind]);
}

void Reset()
{
    state() = State();
}

std::string Log()
{
    std::string lines;
    for (const std::string& line : state().log)
        lines += line + '\n';
    return lines;
}

void ClearLog()
{
    state().log.clear();
}

std::string LeftBehind()
{
    std::string lines;
    for (const auto& object : state().objects) {
        if (object->isLeft())
            lines += object->name + object->condition() + '\n';
    }
    return lines;
}

bool IsAtWork()
{
    return state().atWork;
}

SInt32 ItemShown()
{
    return state().itemShown;
}

void FailCall(const std::string& function, long result, int occurrence)
{
    state().failingCalls.push_back({function, result, occurrence});
}

void ProvideResource(ResType type, SInt16 id, const std::vector<UInt8>& data)
{
    state().resources.push_back({type, id, data});
}

void FillNewBlocks(const void* word)
{
    state().newBlockWord = word;
}

void InModalLoop(const std::vector<Act>& acts)
{
    state().acts = acts;
}

void PressInAlerts(SInt16 button)
{
    state().pressedButton = button;
}

void WhenAlerted(const std::function<void()>& action)
{
    state().whenAlerted = action;
}

}  // namespace ToolboxDouble
