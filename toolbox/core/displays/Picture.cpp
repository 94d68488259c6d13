#include "toolbox/core/displays/Picture.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/core/displays/Screen.h"
#include "toolbox/core/displays/ScreenLibrary.h"

#include <Toolbox/Displays.h>

#include <QCoreApplication>
#include <QFile>

#include <functional>
#include <utility>

namespace Toolbox {

namespace {

std::optional<QString> request;

QString drawPicture(const std::function<QString(const ScreenLibrary&)>& draw)
{
    QString problem;
    const ScreenLibrary* const library = screenLibrary(&problem);
    if (library == nullptr)
        return problem;
    if (QCoreApplication::instance() == nullptr && !platformAnswers("offscreen"))
        return QStringLiteral("Qt cannot draw without a screen");
    return draw(*library);
}

}  // namespace

std::optional<QString> takePictureRequest()
{
    return std::exchange(request, std::nullopt);
}

void notePictureProblem(const QString& problem)
{
    currentReport().pictureProblem = problem.toStdString();
}

void drawRequestedPicture(Window& window)
{
    const std::optional<QString> file = takePictureRequest();
    if (file)
        notePictureProblem(
            drawPicture([&](const ScreenLibrary& library) { return library.drawPicture(window, *file); }));
}

void drawRequestedPicture(const Alert& alert)
{
    const std::optional<QString> file = takePictureRequest();
    if (file)
        notePictureProblem(
            drawPicture([&](const ScreenLibrary& library) { return library.drawAlertPicture(alert, *file); }));
}

void SavePicture(const std::string& file)
{
    request = QFile::decodeName(QByteArray::fromStdString(file));
    currentReport().pictureProblem = "nothing was shown";
}

}  // namespace Toolbox
