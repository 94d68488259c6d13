#include "toolbox/core/core_foundation/StringObject.h"
#include "toolbox/core/core_foundation/URLObject.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Toolbox::quoted;

const std::pair<const char16_t*, const char*> QUOTED_CASES[] = {
    {u"", "\"\""},
    {u"Language Selector", "\"Language Selector\""},
    {u"日本語 \u00e9", "\"日本語 é\""},
    {u"\U0001F600", "\"\U0001F600\""},
    {u"a \"word\" and a \\", "\"a \\\"word\\\" and a \\\\\""},
    {u"two\nlines\x1b[0m", "\"two\\u000alines\\u001b[0m\""},
};

TEST(Quoted, IsOneLineOfPrintableTextOrItsBeginning)
{
    for (const auto& [text, expected] : QUOTED_CASES)
        EXPECT_EQ(quoted(QString::fromUtf16(text)), expected);
    EXPECT_EQ(quoted(QString(80, u'x')), '"' + std::string(80, 'x') + '"');
    EXPECT_EQ(quoted(QString(81, u'x')), '"' + std::string(80, 'x') + "...\"");
}

TEST(TraceNames, AreTextsAndPaths)
{
    auto* const string = new Toolbox::StringObject(QStringLiteral("text"));
    EXPECT_EQ(string->traceName(), "\"text\"");
    string->release();
    auto* const url = new Toolbox::URLObject("/a folder/file\n");
    EXPECT_EQ(url->traceName(), "\"/a folder/file\\u000a\"");
    url->release();
}

}  // namespace
