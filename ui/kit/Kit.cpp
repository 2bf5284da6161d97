#include "ui/kit/Kit.h"

#include "ui/kit/IconProvider.h"
#include "ui/kit/Wishes.h"

#include <QFontDatabase>
#include <QPainter>
#include <QQmlEngine>
#include <QSvgRenderer>

// The build makes it for the module; naming it here keeps the linker from dropping it.
extern void qml_register_types_Palomet_Kit();

namespace palomet::Kit {

void registerFonts(const QString &resources) {
    for (const auto *face : {"400Regular", "500Medium", "700Bold", "800ExtraBold", "900Black"}) {
        const auto file = QStringLiteral("Montserrat_%1.ttf").arg(QLatin1StringView(face));
        QFontDatabase::addApplicationFont(resources + QStringLiteral("/fonts/") + file);
    }
}

QIcon programIcon(const QString &resources) {
    QIcon icon;
    QSvgRenderer drawing(resources + QStringLiteral("/Icons/palomet.svg"));
    if (!drawing.isValid())
        return icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        drawing.render(&painter, picture.rect());
        icon.addPixmap(picture);
    }
    return icon;
}

void install(QQmlEngine &engine, const QString &resources) {
    [[maybe_unused]] static volatile auto registration = &qml_register_types_Palomet_Kit;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider(resources + QStringLiteral("/Icons")));
}

void setMotionReduced(QQmlEngine &engine, bool isReduced) {
    Wishes::of(engine).setMotionReduced(isReduced);
}

void setContrastRaised(QQmlEngine &engine, bool isRaised) {
    Wishes::of(engine).setContrastRaised(isRaised);
}

} // namespace palomet::Kit
