#include "toolbox/screen/DialogFont.h"

#include <QApplication>
#include <QFontInfo>

#include <algorithm>

namespace Toolbox {

namespace {

constexpr int PIXELS = 13;
constexpr int SMALL_PIXELS = 11;

}  // namespace

QFont dialogFont()
{
    QFont font = QApplication::font();
    font.setPixelSize(std::max(PIXELS, QFontInfo(font).pixelSize()));
    return font;
}

QFont smallDialogFont()
{
    QFont font = dialogFont();
    font.setPixelSize(font.pixelSize() * SMALL_PIXELS / PIXELS);
    return font;
}

}  // namespace Toolbox
