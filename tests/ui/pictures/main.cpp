#include "tests/ui/pictures/Studio.h"
#include "ui/UiEngine.h"
#include "ui/kit/Kit.h"

#include <QApplication>
#include <QQmlEngine>

#include <cstdio>

using namespace Qt::StringLiterals;

// palomet-pictures FOLDER           every picture of the window, the strip, the recorder and the gallery
// palomet-pictures FILE.qml PICTURE one of a QML file
// At the scale of QT_SCALE_FACTOR; resources from PALOMET_RESOURCES.
int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    palomet::UiEngine::chooseRenderer();
    const QApplication application(argc, argv);
    const QString resources = qEnvironmentVariable("PALOMET_RESOURCES", u"" PALOMET_BINARY_DIR "/resources"_s);
    const auto arguments = QCoreApplication::arguments();
    palomet::test::Studio studio(resources, arguments.value(1));
    if (arguments.size() == 3)
        return studio.takeFile(arguments[1], arguments[2]) ? 0 : 1;
    if (arguments.size() != 2) {
        std::fputs("usage: palomet-pictures FOLDER | FILE.qml PICTURE\n", stderr);
        return 2;
    }
    for (const auto &language : {u"en"_s, u"pt-BR"_s})
        studio.takeAll(language);
    return studio.takeFile(u"" PALOMET_SOURCE_DIR "/tests/ui/gallery/Gallery.qml"_s, studio.path(u"gallery"_s)) ? 0 : 1;
}
