#include "tests/ui/support/Scene.h"

#include <QAccessible>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::Scene;

namespace {

const auto every = u"⌃⌥⇧⌘⎋⇥⌫⌦↩⌤←→↑↓↖↘⇞⇟"_s;

/// What there is to be seen of a text, in whatever colour.
QImage picture(const QString &words) {
    Scene scene(R"(Item { SignText { objectName: "text"; size: 20; box: 32; color: "#F03E3E" } })", {200, 40});
    scene.item("text")->setProperty("words", words);
    return scene.window().grabWindow();
}

} // namespace

TEST(SignText, DrawsEverySignInItsColourWithoutAnotherTypeface) {
    for (const auto &sign : every) {
        const auto drawn = picture(QString(sign));
        EXPECT_NE(drawn, picture(QString())) << QString(sign).toStdString() << " cannot be seen";
        int red = 0;
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                const QColor color(drawn.pixel(x, y));
                red += color.red() > 0xE8 && color.blue() < 0x60 ? 1 : 0;
            }
        }
        EXPECT_GT(red, 10) << QString(sign).toStdString();
    }
}

TEST(SignText, ShowsMarkupAsItIsWrittenAndWrapsBetweenWords) {
    Scene scene(R"(Column { width: 100
        SignText { objectName: "signs"; width: parent.width; words: "⌥<b>&amp;</b> ⌃⌥K already does nothing" }
 })");
    auto *signs = scene.item("signs");
    QStringList written;
    for (auto *text : Scene::all(signs, "ZenText")) {
        if (text->isVisible() && !text->property("text").toString().isEmpty()) {
            written.append(text->property("text").toString());
            EXPECT_LE(text->mapToItem(signs, {}).x() + text->width(), 120) << written.last().toStdString();
        }
    }
    EXPECT_EQ(written, QStringList({u"<b>&amp;</b>"_s, u"K"_s, u"already"_s, u"does"_s, u"nothing"_s}));
    EXPECT_EQ(signs->height(), 3 * 20);
}

TEST(SignText, IsReadOutAsItIsWritten) {
    Scene scene(R"(SignText { objectName: "text"; words: "⌃⌥K already does “Stop”." })");
    auto *interface = QAccessible::queryAccessibleInterface(scene.item("text"));
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->text(QAccessible::Name), u"⌃⌥K already does “Stop”."_s);
}
