// Draws the program's icon (packaging/org.rosterdesk.RosterDesk.svg) at the sizes Windows shows
// (16 to 256 pixels) and writes them as one .ico file, each size a PNG inside it, and each size as
// a PNG file beside it (rosterdesk-<size>.png):
//
//   make-icon ICON.svg OUT.ico
//
// Built and run by scripts/windows-icon on the build machine; its output is kept in the source
// tree (packaging/windows/), since the Windows build of Qt has no SVG renderer: the .ico goes into
// the program's Windows resources, the PNG files into its Qt resources for its windows' icon.
#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <cstdio>
#include <vector>

namespace {

void put16(QByteArray& out, int value) {
    out.append(char(value & 0xff));
    out.append(char((value >> 8) & 0xff));
}
void put32(QByteArray& out, quint32 value) {
    put16(out, int(value & 0xffff));
    put16(out, int(value >> 16));
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-icon ICON.svg OUT.ico\n");
        return 2;
    }
    const QIcon icon(QString::fromLocal8Bit(argv[1]));
    const int sizes[] = {16, 24, 32, 48, 64, 128, 256};
    std::vector<QByteArray> pictures;
    for (const int size : sizes) {
        const QImage image = icon.pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
        if (image.isNull() || image.width() != size) {
            std::fprintf(stderr, "make-icon: %s cannot be drawn at %d pixels\n", argv[1], size);
            return 1;
        }
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        pictures.push_back(png);
        QFile single(QFileInfo(QString::fromLocal8Bit(argv[2]))
                         .dir()
                         .filePath(QStringLiteral("rosterdesk-%1.png").arg(size)));
        if (!single.open(QIODevice::WriteOnly) || single.write(png) != png.size()) {
            std::fprintf(stderr, "make-icon: cannot write %s\n", qPrintable(single.fileName()));
            return 1;
        }
    }
    // ICONDIR, then one ICONDIRENTRY a picture, then the pictures.
    QByteArray out;
    put16(out, 0);
    put16(out, 1);
    put16(out, int(pictures.size()));
    quint32 offset = 6 + 16 * quint32(pictures.size());
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const int size = sizes[i];
        out.append(char(size >= 256 ? 0 : size)); // 0 stands for 256
        out.append(char(size >= 256 ? 0 : size));
        out.append(char(0)); // no palette
        out.append(char(0));
        put16(out, 1);  // planes
        put16(out, 32); // bits a pixel
        put32(out, quint32(pictures[i].size()));
        put32(out, offset);
        offset += quint32(pictures[i].size());
    }
    for (const QByteArray& png : pictures)
        out.append(png);
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (!file.open(QIODevice::WriteOnly) || file.write(out) != out.size()) {
        std::fprintf(stderr, "make-icon: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
