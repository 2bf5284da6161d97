#include "tests/ui/pictures/Studio.h"
#include "ui/UiEngine.h"
#include "ui/kit/Kit.h"

#include <QApplication>
#include <QQmlEngine>

#include <cstdio>

// palomet-pictures FOLDER           every picture of the window, the strip, the recorder and the gallery
// palomet-pictures FILE.qml PICTURE one of a QML file
// At the scale of QT_SCALE_FACTOR; resources from PALOMET_RESOURCES.
int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    palomet::UiEngine::chooseRenderer();
    const QApplication application(argc, argv);
    const QString resources =
        qEnvironmentVariable("PALOMET_RESOURCES", QStringLiteral(PALOMET_BINARY_DIR "/resources"));
    const auto arguments = QCoreApplication::arguments();
    palomet::test::Studio studio(resources, arguments.value(1));
    if (arguments.size() == 3)
        return studio.takeFile(arguments[1], arguments[2]) ? 0 : 1;
    if (arguments.size() != 2) {
        std::fputs("usage: palomet-pictures FOLDER | FILE.qml PICTURE\n", stderr);
        return 2;
    }
    for (const auto &language : {QStringLiteral("en"), QStringLiteral("pt-BR")})
        studio.takeAll(language);
    return studio.takeFile(QStringLiteral(PALOMET_SOURCE_DIR "/tests/ui/gallery/Gallery.qml"),
                           studio.path(QStringLiteral("gallery")))
               ? 0
               : 1;
}
