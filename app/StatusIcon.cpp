#include "app/StatusIcon.h"

#include <QColor>
#include <QFont>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <algorithm>
#include <memory>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto themeName = u"org.palomet.Palomet-symbolic"_s;
constexpr QRgb onLightPanel = 0xff11181c;
constexpr QRgb onDarkPanel = 0xffffffff;

using Drawing = std::shared_ptr<QSvgRenderer>;

/// Draws one shape at any size; without a drawing, the letter A.
class SymbolEngine final : public QIconEngine {
public:
    SymbolEngine(Drawing drawing, DesktopLook::Scheme panel)
        : m_drawing(std::move(drawing))
        , m_panel(panel) {}

    [[nodiscard]] QIconEngine *clone() const override { return new SymbolEngine(*this); }
    [[nodiscard]] QString key() const override { return u"PalometSymbol"_s; }

    // A name that no theme knows would leave the panel without any picture.
    QString iconName() override {
        return m_panel != Scheme::Unknown && QIcon::hasThemeIcon(themeName) ? themeName : QString();
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {18, 18}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override {
        const auto shape = drawn(size, m_panel == Scheme::Dark ? onDarkPanel : onLightPanel);
        return m_panel == Scheme::Unknown ? edged(shape, drawn(size, onDarkPanel)) : shape;
    }

    void paint(QPainter *painter, const QRect &area, QIcon::Mode, QIcon::State) override {
        painter->setRenderHint(QPainter::Antialiasing);
        if (m_drawing) {
            m_drawing->render(painter, area);
            return;
        }
        QFont font(u"sans-serif"_s);
        font.setBold(true);
        font.setPixelSize(area.height());
        painter->setFont(font);
        painter->drawText(area, Qt::AlignCenter, u"A"_s);
    }

private:
    using Scheme = DesktopLook::Scheme;

    [[nodiscard]] QPixmap drawn(const QSize &size, QRgb color) {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), QIcon::Normal, QIcon::Off);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), QColor(color));
        return picture;
    }

    /// The shape with a light edge around it, a twentieth of the picture and at least a pixel wide.
    [[nodiscard]] static QPixmap edged(const QPixmap &shape, const QPixmap &light) {
        QPixmap picture(shape.size());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const int width = std::max(1, shape.height() / 20);
        for (int y = -width; y <= width; ++y) {
            for (int x = -width; x <= width; ++x)
                painter.drawPixmap(x, y, light);
        }
        painter.drawPixmap(0, 0, shape);
        return picture;
    }

    Drawing m_drawing;
    Scheme m_panel;
};

Drawing drawingIn(const std::optional<QString> &resources) {
    if (!resources)
        return nullptr;
    auto drawing = std::make_shared<QSvgRenderer>(*resources + u"/Icons/menubar.svg"_s);
    return drawing->isValid() ? drawing : nullptr;
}

} // namespace

QIcon statusIcon(const std::optional<QString> &resources, DesktopLook::Scheme panel) {
    return QIcon(new SymbolEngine(drawingIn(resources), panel));
}

} // namespace palomet
