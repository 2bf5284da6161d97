#include "ui/kit/IconProvider.h"

#include <QColor>
#include <QPainter>
#include <QSvgRenderer>

namespace palomet {

IconProvider::IconProvider(const QString &folder)
    : QQuickImageProvider(Image)
    , m_folder(folder) {}

QImage IconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize) {
    const auto name = id.section(u'/', 0, 0);
    const QColor color(u'#' + id.section(u'/', 1));
    QSvgRenderer picture(m_folder + u'/' + name + QStringLiteral(".svg"));
    if (!picture.isValid() || !color.isValid())
        return {};
    const auto wanted = requestedSize.isEmpty() ? picture.defaultSize() : requestedSize;
    QImage image(wanted, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    // The drawing's strokes are black; only their shape is used.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    if (size)
        *size = wanted;
    return image;
}

} // namespace palomet
