#include "app/StatusIcon.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <set>

using namespace palomet;
using namespace Qt::StringLiterals;
using Scheme = DesktopLook::Scheme;

namespace {

class StatusIconTest : public ::testing::Test {
protected:
    StatusIconTest() { QDir(folder.path()).mkdir(u"Icons"_s); }

    void draw(const QByteArray &content) const {
        QFile file(folder.filePath(u"Icons/menubar.svg"_s));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }

    QImage image(Scheme panel = Scheme::Light, int size = 18) const {
        return statusIcon(folder.path(), panel).pixmap(QSize(size, size)).toImage();
    }

    /// The letter instead of a picture.
    static QImage letter() { return statusIcon({}, Scheme::Light).pixmap(QSize(18, 18)).toImage(); }

    /// How much of the image is drawn on.
    static int ink(const QImage &image) {
        int sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                sum += qAlpha(image.pixel(x, y));
        }
        return sum;
    }

    static std::set<QRgb> solidColors(const QImage &image) {
        std::set<QRgb> found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) == 255)
                    found.insert(image.pixel(x, y));
            }
        }
        return found;
    }

    QTemporaryDir folder;
};

// The left half, in a colour that is nobody's.
const QByteArray leftHalf = R"(<svg xmlns="http://www.w3.org/2000/svg" width="18" height="18" viewBox="0 0 18 18">)"
                            R"(<path fill="#ff0000" d="M0 0h9v18H0z"/></svg>)";

} // namespace

TEST_F(StatusIconTest, IsThePictureInTheColourThatIsSeenOnThePanel) {
    draw(leftHalf);
    EXPECT_EQ(solidColors(image(Scheme::Light)), std::set<QRgb>{0xff11181c});
    EXPECT_EQ(solidColors(image(Scheme::Dark)), std::set<QRgb>{0xffffffff});
    EXPECT_EQ(qAlpha(image().pixel(4, 9)), 255);
    EXPECT_EQ(qAlpha(image().pixel(14, 9)), 0);
}

TEST_F(StatusIconTest, IsSeenOnALightAndOnADarkPanelWhereItIsNotKnownWhichItIs) {
    draw(leftHalf);
    for (const int size : {16, 22, 24, 64}) {
        const auto drawn = image(Scheme::Unknown, size);
        EXPECT_EQ(solidColors(drawn), (std::set<QRgb>{0xff11181c, 0xffffffff})) << size;
        const int middle = size / 2;
        EXPECT_EQ(drawn.pixel(middle - 1, middle), 0xff11181c) << size;
        EXPECT_EQ(drawn.pixel(middle, middle), 0xffffffff) << size;
        EXPECT_EQ(qAlpha(drawn.pixel(middle + size / 4, middle)), 0) << size;
    }
    EXPECT_EQ(statusIcon(folder.path(), Scheme::Unknown).name(), QString());
}

TEST_F(StatusIconTest, IsSharpInTheSizesThatPanelsAskFor) {
    draw(leftHalf);
    const auto icon = statusIcon(folder.path(), Scheme::Light);
    EXPECT_EQ(icon.availableSizes(),
              (QList<QSize>{{16, 16}, {18, 18}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}}));
    EXPECT_EQ(image(Scheme::Light, 64).size(), QSize(64, 64));
    EXPECT_EQ(qAlpha(image(Scheme::Light, 64).pixel(31, 32)), 255);
    EXPECT_EQ(qAlpha(image(Scheme::Light, 64).pixel(32, 32)), 0);
}

TEST_F(StatusIconTest, IsTheLetterWithoutAPicture) {
    const auto drawn = image();
    EXPECT_EQ(drawn, letter());
    EXPECT_EQ(solidColors(drawn), std::set<QRgb>{0xff11181c});
}

TEST_F(StatusIconTest, TheLetterIsBoldAndAsHighAsTheIcon) {
    QImage regular(64, 64, QImage::Format_ARGB32_Premultiplied);
    regular.fill(Qt::transparent);
    QPainter painter(&regular);
    QFont font(u"sans-serif"_s);
    font.setPixelSize(64);
    painter.setFont(font);
    painter.drawText(regular.rect(), Qt::AlignCenter, u"A"_s);
    painter.end();
    EXPECT_GT(ink(statusIcon({}, Scheme::Light).pixmap(QSize(64, 64)).toImage()), ink(regular));
}

TEST_F(StatusIconTest, IsTheLetterWhenThePictureIsNone) {
    for (const QByteArray content : {"", "words", "<svg", "<html/>"}) {
        draw(content);
        EXPECT_EQ(image(), letter()) << content.constData();
    }
    QFile::remove(folder.filePath(u"Icons/menubar.svg"_s));
    QDir().mkdir(folder.filePath(u"Icons/menubar.svg"_s));
    EXPECT_EQ(image(), letter());
}

TEST_F(StatusIconTest, HasNoNameThatThePanelWouldNotFind) {
    EXPECT_EQ(statusIcon({}, Scheme::Light).name(), QString());
}
