#include "ui/kit/Kit.h"

#include "ui/kit/IconProvider.h"
#include "ui/kit/Wishes.h"

#include <QFontDatabase>
#include <QPainter>
#include <QQmlEngine>
#include <QSvgRenderer>

// The build makes it for the module; naming it here keeps the linker from dropping it.
extern void qml_register_types_Palomet_Kit();

namespace palomet::kit {

using namespace Qt::StringLiterals;

void registerFonts(const QString &resources) {
    for (const auto *face : {"400Regular", "500Medium", "700Bold", "800ExtraBold", "900Black"}) {
        const auto file = u"Montserrat_%1.ttf"_s.arg(QLatin1StringView(face));
        QFontDatabase::addApplicationFont(resources + u"/fonts/"_s + file);
    }
}

QIcon programIcon(const QString &resources) {
    QIcon icon;
    QSvgRenderer drawing(resources + u"/Icons/palomet.svg"_s);
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
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.addImageProvider(u"icon"_s, new IconProvider(resources + u"/Icons"_s));
}

void setMotionReduced(QQmlEngine &engine, bool isReduced) {
    Wishes::of(engine).setMotionReduced(isReduced);
}

void setContrastRaised(QQmlEngine &engine, bool isRaised) {
    Wishes::of(engine).setContrastRaised(isRaised);
}

} // namespace palomet::kit
