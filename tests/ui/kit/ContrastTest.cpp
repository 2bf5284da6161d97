#include "tests/ui/support/Contrast.h"

#include "tests/ui/support/Scene.h"
#include "ui/kit/Wishes.h"

#include <QDirIterator>
#include <QRegularExpression>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

class ContrastTest : public ::testing::TestWithParam<bool> {
protected:
    ContrastTest() {
        kit::install(m_engine, u"" PALOMET_BINARY_DIR "/resources"_s);
        kit::setContrastRaised(m_engine, GetParam());
        kit::setMotionReduced(m_engine, true);
    }

    QQmlEngine m_engine;
};

/// The names of the palette that the QML of the kit, the window and the strip uses.
QStringList used(const Palette &palette) {
    QStringList used;
    const auto names = palette.names();
    static const QRegularExpression name(u"\\bZen\\.(\\w+)"_s);
    for (const auto *folder : {"kit", "screens", "shell", "strip"}) {
        QDirIterator files(u"" PALOMET_SOURCE_DIR "/ui/"_s + QString::fromLatin1(folder), {u"*.qml"_s}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QFile::ReadOnly));
            const auto text = QString::fromUtf8(file.readAll());
            for (auto match = name.globalMatch(text); match.hasNext();) {
                const auto found = match.next().captured(1);
                if (names.contains(found) && !used.contains(found))
                    used.append(found);
            }
        }
    }
    return used;
}

} // namespace

TEST_P(ContrastTest, IsEnoughForEveryPairOfThePalette) {
    const Palette palette(m_engine);
    for (const auto &pair : pairsOf(palette))
        EXPECT_GE(contrast(pair.color, pair.ground), wanted(pair.ink, GetParam()))
            << pair.what.toStdString() << ": " << pair.color.name().toStdString() << " on "
            << pair.ground.name().toStdString();
}

TEST_P(ContrastTest, IsCheckedForEveryColourThatIsUsed) {
    const Palette palette(m_engine);
    QStringList known;
    for (const auto &meeting : meetings)
        known += QString::fromLatin1(meeting.colors).split(u' ');
    for (const auto *name : unread)
        known.append(QString::fromLatin1(name));
    const auto names = used(palette);
    EXPECT_GT(names.size(), 10);
    for (const auto &name : names)
        EXPECT_TRUE(known.contains(name)) << name.toStdString();
}

TEST_P(ContrastTest, IsEnoughInEveryStateOfEveryControl) {
    QQuickView view(&m_engine, nullptr);
    view.setSource(QUrl::fromLocalFile(u"" PALOMET_SOURCE_DIR "/tests/ui/gallery/Gallery.qml"_s));
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    expectContrast(view, Palette(m_engine), GetParam(), "gallery");
}

INSTANTIATE_TEST_SUITE_P(AsItIsAndRaised, ContrastTest, ::testing::Bool(),
                         [](const auto &wish) { return wish.param ? "Raised" : "Normal"; });
