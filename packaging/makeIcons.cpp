// make-icons FILE FOLDER SIZE…: draws an SVG in these sizes, for desktops that cannot: each in FOLDER/SIZE.png.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

bool draw(QSvgRenderer &drawing, const QString &path, int size) {
    QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    drawing.render(&painter);
    painter.end();
    return icon.save(path);
}

} // namespace

int main(int argc, char **argv) {
    constexpr int firstSize = 3;
    if (argc <= firstSize)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s is no drawing\n", argv[1]);
        return 1;
    }
    const auto folder = QString::fromLocal8Bit(argv[2]);
    for (int index = firstSize; index < argc; ++index) {
        const int size = std::atoi(argv[index]);
        if (size <= 0 || !draw(drawing, u"%1/%2.png"_s.arg(folder, QString::number(size)), size)) {
            std::fprintf(stderr, "the size %s cannot be drawn\n", argv[index]);
            return 1;
        }
    }
    return 0;
}
