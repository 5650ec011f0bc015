// Draws the pictures that the tracker comes with anew: the maps of the world from public geographic data, the
// landscape out of nothing, and the sprites from their drawings.
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "art/draw_pictures/landscape.h"
#include "art/draw_pictures/maps.h"
#include "art/draw_pictures/sprites.h"

namespace {

void save(const QImage& image, const QString& file, const char* format, int quality) {
    QImageWriter writer(file, format);
    writer.setQuality(quality);
    writer.setOptimizedWrite(true);
    if (!writer.write(image))
        throw std::runtime_error(file.toStdString() + ": " + writer.errorString().toStdString());
    std::cout << file.toStdString() << '\n';
}

void drawMaps(const QString& geodata, const QString& folder) {
    const vantrace::EarthLayers layers = vantrace::readEarthLayers(geodata);
    constexpr int quality = 84;
    save(vantrace::paintReliefMap(layers), folder + "/Default.jpg", "jpg", quality);
    save(vantrace::paintPoliticalMap(layers), folder + "/Political.jpg", "jpg", quality);
    save(vantrace::paintMidnightMap(layers), folder + "/Midnight.jpg", "jpg", quality);
}

void drawLandscape(const QString& folder) {
    constexpr int quality = 92;
    save(vantrace::paintLandscape(), folder + "/hdefault.jpg", "jpg", quality);
}

void drawSprites(const QString& drawings, const QString& folder) {
    // Qt takes it for the compression: as strong as can be.
    constexpr int smallest = 0;
    for (const QFileInfo& drawing : QDir(drawings).entryInfoList({"*.svg"})) {
        for (const int density : {1, 2, 3}) {
            const QString ending = density == 1 ? QString(".png") : QString("@%1x.png").arg(density);
            const vantrace::Sprite sprite = vantrace::drawSprite(drawing.filePath(), density);
            const QString name = folder + "/" + drawing.baseName();
            save(sprite.picture, name + ending, "png", smallest);
            save(sprite.mask, name + "_mask" + ending, "png", smallest);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    try {
        if (arguments.size() == 4 && arguments[1] == "maps") {
            drawMaps(arguments[2], arguments[3]);
        } else if (arguments.size() == 3 && arguments[1] == "landscape") {
            drawLandscape(arguments[2]);
        } else if (arguments.size() == 4 && arguments[1] == "sprites") {
            drawSprites(arguments[2], arguments[3]);
        } else {
            std::cerr << "usage: draw_pictures maps GEODATA FOLDER | draw_pictures landscape FOLDER | "
                         "draw_pictures sprites DRAWINGS FOLDER\n";
            return 2;
        }
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
    return 0;
}
