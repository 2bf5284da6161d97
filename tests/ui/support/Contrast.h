#pragma once

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <set>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The contrast of two colours as the guidelines for accessible content define it, 1 to 21.
[[nodiscard]] inline double contrast(const QColor &one, const QColor &other) {
    const auto luminance = [](const QColor &color) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// What a colour is for, and with it what contrast it needs.
enum class Ink { Text, LargeText, Part };

[[nodiscard]] inline double wanted(Ink ink, bool isRaised) {
    if (ink == Ink::Part)
        return 3;
    if (ink == Ink::LargeText)
        return isRaised ? 4.5 : 3;
    return isRaised ? 7 : 4.5;
}

/// Two colours that meet somewhere.
struct Pair {
    Ink ink;
    QColor color;
    QColor ground;
    QString what;
};

/// The palette of an engine, normal or with raised contrast.
class Palette {
public:
    explicit Palette(QQmlEngine &engine) {
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport Palomet.Kit\nQtObject { readonly property var zen: Zen }",
                          QUrl(u"qrc:/Palette.qml"_s));
        m_holder.reset(component.create());
        EXPECT_TRUE(m_holder) << component.errorString().toStdString();
        m_zen = m_holder->property("zen").value<QObject *>();
    }

    [[nodiscard]] QColor operator[](const QString &name) const {
        const auto value = m_zen->property(name.toUtf8().constData());
        EXPECT_TRUE(value.isValid()) << name.toStdString();
        return value.value<QColor>();
    }
    /// Everything in it that is a colour.
    [[nodiscard]] QStringList names() const {
        QStringList names;
        const auto *meta = m_zen->metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            if (meta->property(i).metaType().id() == QMetaType::QColor)
                names.append(QString::fromLatin1(meta->property(i).name()));
        }
        return names;
    }

private:
    std::unique_ptr<QObject> m_holder;
    QObject *m_zen = nullptr;
};

/// Every ink and edge on every ground that it meets: "ink on ground ground …", by what it is.
struct Meeting {
    Ink ink;
    const char *colors;
};
inline constexpr Meeting meetings[] = {
    {Ink::Text, "gray9 on gray0 gray1 gray2 gray3 gray4"}, // also on a secondary button, pointed at and pressed
    {Ink::Text, "gray0 on gray9 gray8 gray7"},             // a primary button, the strip
    {Ink::Text, "gray8 on gray0"},
    {Ink::Text, "gray3 on gray9"}, // the strip's line
    {Ink::Text, "bodyInk on gray0 gray1 gray2"},
    {Ink::Text, "noteInk on gray0 gray1"},
    {Ink::Text, "alarmInk on gray0 gray2"},
    {Ink::Text, "darkNoteInk on gray9"},
    {Ink::Part, "edge on gray0 gray2"}, // the recorder's caps, pointed at
    {Ink::Part, "edgePointed on gray0 gray2"},
    {Ink::Part, "gray9 on gray0 gray2"},
    {Ink::Part, "gray8 on gray0"},
    {Ink::Part, "noteInk on gray0 gray1"}, // the knob, the chevron, the sidebar's icons
    {Ink::Part, "red7 on gray0 gray9"},    // the muted glyph
};

/// What may have less: what is disabled, what only parts one row from another, what says nothing that no word says, as
/// the glyph of being offline, and what is not used.
inline constexpr const char *unread[] = {"disabledInk", "rule", "darkEdge", "gray5", "red2", "red6"};

[[nodiscard]] inline std::vector<Pair> pairsOf(const Palette &palette) {
    std::vector<Pair> pairs;
    for (const auto &[ink, colors] : meetings) {
        const auto text = QString::fromLatin1(colors);
        for (const auto &ground : text.section(u" on "_s, 1).split(u' '))
            pairs.push_back({ink, palette[text.section(u' ', 0, 0)], palette[ground], text});
    }
    return pairs;
}

/// Looks at a window as it is drawn: every text, every icon and every edge that can be seen, and what it stands on.
class Looker {
public:
    explicit Looker(QQuickWindow &window)
        : m_picture(window.grabWindow().convertToFormat(QImage::Format_RGB32))
        , m_scale(window.devicePixelRatio()) {
        look(window.contentItem());
    }

    [[nodiscard]] const std::vector<Pair> &pairs() const { return m_pairs; }

private:
    static QString typeOf(const QQuickItem *item) {
        return QString::fromUtf8(item->metaObject()->className()).section(u"_QML"_s, 0, 0);
    }
    static bool isA(const QQuickItem *item, const char *type) {
        for (const auto *meta = item->metaObject(); meta; meta = meta->superClass())
            if (QString::fromUtf8(meta->className()).section(u"_QML"_s, 0, 0) == QString::fromUtf8(type))
                return true;
        return false;
    }

    /// The commonest colour around a rectangle; none where that is not all in the picture.
    [[nodiscard]] std::optional<QColor> around(const QRectF &place) const {
        const auto frame = QRectF(place.topLeft() * m_scale, place.size() * m_scale).toAlignedRect();
        if (!m_picture.rect().contains(frame) || frame.width() < 2 || frame.height() < 2)
            return std::nullopt;
        std::map<QRgb, int> counts;
        for (int x = frame.left(); x <= frame.right(); ++x) {
            ++counts[m_picture.pixel(x, frame.top())];
            ++counts[m_picture.pixel(x, frame.bottom())];
        }
        for (int y = frame.top(); y <= frame.bottom(); ++y) {
            ++counts[m_picture.pixel(frame.left(), y)];
            ++counts[m_picture.pixel(frame.right(), y)];
        }
        const auto most = std::max_element(counts.begin(), counts.end(),
                                           [](const auto &a, const auto &b) { return a.second < b.second; });
        return QColor(most->first);
    }

    void note(Ink ink, const QQuickItem *item, const QColor &color, const QRectF &place) {
        if (color.alpha() == 0)
            return;
        if (const auto ground = around(place))
            m_pairs.push_back({ink, color, *ground,
                               typeOf(item) + u' ' + item->property("text").toString() +
                                   item->property("name").toString() + u" at %1, %2"_s.arg(place.x()).arg(place.y())});
    }

    void look(QQuickItem *item) {
        // What is disabled needs no contrast.
        if (!item->isVisible() || !item->isEnabled() || item->opacity() < 1)
            return;
        const auto place = item->mapRectToScene(QRectF({}, item->size()));
        const auto color = item->property("color").value<QColor>();
        if (item->inherits("QQuickText")) {
            const auto font = item->property("font").value<QFont>();
            const bool isLarge = font.pixelSize() >= 24 || (font.pixelSize() >= 19 && font.weight() >= QFont::Bold);
            // A text may fill its field's whole height, edges and all.
            const QRectF words(place.x(), place.y() + 2, item->property("contentWidth").toReal(), place.height() - 4);
            if (!item->property("text").toString().isEmpty() && !isA(item, "Caption"))
                note(isLarge ? Ink::LargeText : Ink::Text, item, color, words);
        } else if (item->inherits("QQuickTextInput")) {
            if (!item->property("text").toString().isEmpty())
                note(Ink::Text, item, color, place.adjusted(4, 4, -4, -4));
        } else if (isA(item, "Icon")) {
            note(Ink::Part, item, color, place.adjusted(-1, -1, 1, 1));
        } else if (isA(item, "palomet::ZenBox")) {
            if (item->property("edgeWidth").toReal() > 0 && !isDecoration(item))
                note(Ink::Part, item, item->property("edge").value<QColor>(), place.adjusted(-2, -2, 2, 2));
            if (item->parentItem() && isA(item->parentItem(), "ScrollThumb"))
                note(Ink::Part, item, color, place.adjusted(-1, -1, 1, 1));
        }
        for (auto *child : item->childItems())
            look(child);
    }

    /// A swatch, a glyph beside its word, the key cap on the strip.
    static bool isDecoration(const QQuickItem *item) {
        const auto *parent = item->parentItem();
        return parent && (isA(parent, "StateGlyph") || isA(parent, "StripContent") || isA(parent, "Figure") ||
                          isA(parent->parentItem() ? parent->parentItem() : parent, "Figure"));
    }

    const QImage m_picture;
    const double m_scale;
    std::vector<Pair> m_pairs;
};

/// Expects of all that is seen that it stands out, and that it is one of the pairs that the palette is checked for.
inline void expectContrast(QQuickWindow &window, const Palette &palette, bool isRaised, const std::string &where) {
    const Looker looker(window);
    const auto known = pairsOf(palette);
    EXPECT_GT(looker.pairs().size(), 3U) << where;
    for (const auto &pair : looker.pairs()) {
        EXPECT_GE(contrast(pair.color, pair.ground), wanted(pair.ink, isRaised))
            << where << ": " << pair.what.toStdString() << ' ' << pair.color.name().toStdString() << " on "
            << pair.ground.name().toStdString();
        const auto isKnown = std::any_of(known.begin(), known.end(), [&](const auto &one) {
            return one.color == pair.color && one.ground == pair.ground;
        });
        EXPECT_TRUE(isKnown) << where << ": " << pair.what.toStdString() << ' ' << pair.color.name().toStdString()
                             << " on " << pair.ground.name().toStdString() << " is on no list";
    }
}

} // namespace palomet::test
