#include "app/StatusIcon.h"

#include <QColor>
#include <QFont>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <memory>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto themeName = u"org.palomet.Palomet-symbolic"_s;
constexpr QRgb onLightPanel = 0xff11181c;
constexpr QRgb onDarkPanel = 0xffffffff;

using Drawing = std::shared_ptr<QSvgRenderer>;

/// Draws one shape in one colour at any size; without a drawing, the letter A.
class SymbolEngine final : public QIconEngine {
public:
    SymbolEngine(Drawing drawing, QColor color)
        : m_drawing(std::move(drawing))
        , m_color(color) {}

    [[nodiscard]] QIconEngine *clone() const override { return new SymbolEngine(*this); }
    [[nodiscard]] QString key() const override { return u"PalometSymbol"_s; }

    // A name that no theme knows would leave the panel without any picture.
    QString iconName() override { return QIcon::hasThemeIcon(themeName) ? themeName : QString(); }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {18, 18}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), QIcon::Normal, QIcon::Off);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), m_color);
        return picture;
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
        painter->setPen(m_color);
        painter->drawText(area, Qt::AlignCenter, u"A"_s);
    }

private:
    Drawing m_drawing;
    QColor m_color;
};

Drawing drawingIn(const std::optional<QString> &resources) {
    if (!resources)
        return nullptr;
    auto drawing = std::make_shared<QSvgRenderer>(*resources + u"/Icons/menubar.svg"_s);
    return drawing->isValid() ? drawing : nullptr;
}

} // namespace

QIcon statusIcon(const std::optional<QString> &resources, DesktopLook::Scheme panel) {
    const QColor color(panel == DesktopLook::Scheme::Dark ? onDarkPanel : onLightPanel);
    return QIcon(new SymbolEngine(drawingIn(resources), color));
}

} // namespace palomet
