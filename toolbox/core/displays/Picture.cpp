#include "toolbox/core/displays/Picture.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/displays/Screen.h"
#include "toolbox/core/displays/ScreenLibrary.h"

#include <Toolbox/Displays.h>

#include <QCoreApplication>

#include <functional>
#include <utility>

namespace Toolbox {

namespace {

bool isRequested = false;

void drawIfRequested(const std::function<void(const ScreenLibrary&)>& draw)
{
    if (!takePictureRequest())
        return;
    QString problem;
    const ScreenLibrary* const library = screenLibrary(&problem);
    if (library == nullptr)
        notePicture({}, problem);
    else if (QCoreApplication::instance() == nullptr && !platformAnswers("offscreen"))
        notePicture({}, QStringLiteral("Qt cannot draw without a screen"));
    else
        draw(*library);
}

}  // namespace

bool takePictureRequest()
{
    return std::exchange(isRequested, false);
}

void notePicture(const QByteArray& png, const QString& problem)
{
    currentReport().picture.assign(png.begin(), png.end());
    currentReport().pictureProblem = problem.toStdString();
}

void drawRequestedPicture(Window& window)
{
    drawIfRequested([&window](const ScreenLibrary& library) { library.drawPicture(window); });
}

void drawRequestedPicture(const Alert& alert)
{
    drawIfRequested([&alert](const ScreenLibrary& library) { library.drawAlertPicture(alert); });
}

void WantPicture()
{
    isRequested = true;
    notePicture({}, QStringLiteral("nothing was shown"));
}

}  // namespace Toolbox
