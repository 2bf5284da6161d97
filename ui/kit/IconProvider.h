#pragma once

#include <QQuickImageProvider>

namespace palomet {

/// Serves `image://icon/NAME/RRGGBB`: the outline icon NAME of the resource folder, drawn in that colour at exactly the
/// requested size. A missing icon is a null image, which the scene reports by its name.
class IconProvider final : public QQuickImageProvider {
public:
    explicit IconProvider(const QString &folder);

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    QString m_folder;
};

} // namespace palomet
