// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's icon as the .ico file that goes into the Windows programs.
#include "ui/Icons.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QPixmap>

#include <array>
#include <cstdlib>
#include <vector>

namespace {

// What Windows shows in lists, on the task bar and on the desktop, from 100 to 250 percent.
constexpr std::array sizes = {16, 20, 24, 32, 40, 48, 64, 96, 256};

constexpr quint16 headerSize = 6;
constexpr quint16 entrySize = 16;

QByteArray pngOf(int size)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    tavrel::programIcon().pixmap(size, size).toImage().save(&buffer, "PNG");
    return bytes;
}

QByteArray iconFile()
{
    std::vector<QByteArray> images;
    for (const int size : sizes) {
        images.push_back(pngOf(size));
    }
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    constexpr quint16 icon = 1;
    stream << quint16{0} << icon << static_cast<quint16>(images.size());
    auto offset = static_cast<quint32>(headerSize + entrySize * images.size());
    for (std::size_t i = 0; i < images.size(); ++i) {
        const auto side = static_cast<quint8>(sizes[i]); // 0 stands for 256
        constexpr quint16 planes = 1;
        constexpr quint16 bitsPerPixel = 32;
        const auto length = static_cast<quint32>(images[i].size());
        stream << side << side << quint8{0} << quint8{0} << planes << bitsPerPixel << length << offset;
        offset += length;
    }
    for (const QByteArray& image : images) {
        stream.writeRawData(image.constData(), static_cast<int>(image.size()));
    }
    return file;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        qWarning("Usage: make_icon FILE.ico");
        return EXIT_FAILURE;
    }
    QFile file(QFile::decodeName(argv[1]));
    const QByteArray bytes = iconFile();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? EXIT_SUCCESS : EXIT_FAILURE;
}
