#include "art/draw_pictures/land.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "art/draw_pictures/land_shapes.h"
#include "art/draw_pictures/landscape.h"
#include "art/draw_pictures/random_waves.h"

namespace vantrace {

namespace {

/// A line of hills; heights are in pixels over the lower edge.
struct Ridge {
    double height;
    double swing;
    /// How many hills there are, about 3 for each 1.
    double around;
    unsigned seed;
};

constexpr Ridge mountains{97, 46, 3.2, 1400};
constexpr Ridge woods{80, 28, 4.5, 1500};
constexpr Ridge rise{67, 11, 2.2, 1600};

/// Pixels from the lower edge that nothing shines in, for the line that is printed there.
constexpr double quietHeight = 69;

double heightAt(const Ridge& ridge, double x) {
    const double angle = x / landscapeWidth * 2 * std::numbers::pi;
    const float waves =
        randomWaves({std::cos(angle) * ridge.around, std::sin(angle) * ridge.around, 0}, ridge.seed);
    return ridge.height + ridge.swing * static_cast<double>(waves);
}

double groundAt(const Ridge& ridge, double x) {
    return landscapeHeight - heightAt(ridge, x);
}

double luck(int number, int kind, const Ridge& ridge) {
    return (static_cast<double>(randomAt(number, kind, 1, ridge.seed)) + 1) / 2;
}

/// Shapes painted one by one upon each other; what is beyond one edge comes in at the other.
class Silhouette {
  public:
    Silhouette() : m_image(landscapeWidth, landscapeHeight, QImage::Format_Grayscale8) {
        m_image.fill(Qt::black);
    }

    void add(const QPainterPath& shape) {
        QPainter painter(&m_image);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const int turn : {-1, 0, 1}) {
            painter.fillPath(shape.translated(turn * landscapeWidth, 0), Qt::white);
        }
    }

    void add(const Ridge& ridge) {
        QPainterPath shape(QPointF(0, landscapeHeight));
        for (int x = 0; x <= landscapeWidth; ++x) shape.lineTo(x, groundAt(ridge, x));
        shape.lineTo(landscapeWidth, landscapeHeight);
        add(shape);
    }

    Plane coverage() const { return planeOf(m_image); }

  private:
    QImage m_image;
};

struct Building {
    double x;
    double width;
    double height;
};

/// A few lie in front of others.
constexpr std::array<Building, 9> village{{{1838, 26, 17},
                                           {1862, 22, 20},
                                           {1881, 28, 18},
                                           {1932, 24, 21},
                                           {1957, 30, 18},
                                           {1985, 22, 17},
                                           {2006, 28, 20},
                                           {2043, 26, 16},
                                           {2230, 30, 18}}};
constexpr double churchX = 1903;
constexpr double mastX = 2492;
constexpr double mastHeight = 62;
constexpr double dishX = 905;
constexpr double dishHeight = 60;

Plane coverageOfWoods() {
    Silhouette silhouette;
    silhouette.add(woods);
    double x = 0;
    for (int tree = 0; x < landscapeWidth; ++tree) {
        const double size = 11 + 12 * luck(tree, 0, woods);
        const double angle = x / landscapeWidth * 2 * std::numbers::pi;
        // Clearings.
        if (randomWaves({std::cos(angle) * 3, std::sin(angle) * 3, 9}, woods.seed) > -0.22F)
            silhouette.add(spruce(x, groundAt(woods, x) + 3, size, tree));
        x += 2.5 + 5 * luck(tree, 1, woods);
    }
    return silhouette.coverage();
}

void addTreesOfRise(Silhouette& silhouette) {
    constexpr int groups = 30;
    for (int group = 0; group < groups; ++group) {
        const double middle = (group + 0.8 * luck(group, 0, rise)) * landscapeWidth / groups;
        const bool isSpruce = luck(group, 1, rise) < 0.5;
        const int trees = 1 + static_cast<int>(6 * luck(group, 2, rise));
        for (int tree = 0; tree < trees; ++tree) {
            const int number = 100 + group * 10 + tree;
            const double x = middle + (luck(number, 0, rise) - 0.5) * (10 + 13 * trees);
            const bool isInTheWay =
                std::abs(x - dishX) < 75 || std::abs(x - mastX) < 30 || (x > 1825 && x < 2060);
            if (isInTheWay) continue;
            const double size = (isSpruce ? 28 : 22) + 20 * luck(number, 1, rise);
            silhouette.add(isSpruce ? spruce(x, groundAt(rise, x) + 3, size, number)
                                    : broadleaf(x, groundAt(rise, x) + 3, size, number));
        }
    }
}

Plane coverageOfRise() {
    Silhouette silhouette;
    silhouette.add(rise);
    addTreesOfRise(silhouette);
    for (const Building& building : village)
        silhouette.add(house(building.x, groundAt(rise, building.x), building.width, building.height));
    silhouette.add(church(churchX, groundAt(rise, churchX), 46));
    silhouette.add(mast(mastX, groundAt(rise, mastX), mastHeight));
    silhouette.add(dishAerial(dishX, groundAt(rise, dishX), dishHeight).outline);
    return silhouette.coverage();
}

/// A layer's colour goes over into the haze towards its foot.
struct Layer {
    Plane coverage;
    Tone colour;
    double footHeight;
    double topHeight;
    float hazeAtFoot;
    float hazeAtTop;
};

void lamp(QPainter& painter, const QPointF& place, const QSizeF& size, const QColor& colour) {
    QRadialGradient shine(place, size.height() * 2.4);
    QColor faint = colour;
    faint.setAlpha(46);
    shine.setColorAt(0, faint);
    faint.setAlpha(0);
    shine.setColorAt(1, faint);
    painter.fillRect(QRectF(place.x() - 20, place.y() - 20, 40, 40), shine);
    painter.fillRect(QRectF(place - QPointF(size.width() / 2, size.height() / 2), size), colour);
}

}  // namespace

void paintLand(Picture& sky) {
    const std::vector<Layer> layers{{[] {
                                         Silhouette silhouette;
                                         silhouette.add(mountains);
                                         return silhouette.coverage();
                                     }(),
                                     toneOf(0x131A36), 40, 125, 0.52F, 0.34F},
                                    {coverageOfWoods(), toneOf(0x0A0F20), 45, 105, 0.36F, 0.09F},
                                    {coverageOfRise(), toneOf(0x05070F), 0, 100, 0, 0.015F}};
    constexpr int hazeElevationDeg = 2;
    constexpr int hazeRow = landscapeHeight - landscapeHeight * hazeElevationDeg / 90;
    std::vector<Tone> haze;
    for (int x = 0; x < landscapeWidth; ++x) haze.push_back(sky.tone(x, hazeRow));
    for (const Layer& layer : layers) {
        for (int y = landscapeHeight * 9 / 10; y < landscapeHeight; ++y) {
            const double share =
                (landscapeHeight - y - layer.footHeight) / (layer.topHeight - layer.footHeight);
            const float hazy = layer.hazeAtFoot + (layer.hazeAtTop - layer.hazeAtFoot) *
                                                      smoothStep(0, 1, static_cast<float>(share));
            for (int x = 0; x < landscapeWidth; ++x) {
                const Tone land = mix(layer.colour, haze[static_cast<std::size_t>(x)], hazy);
                sky.setTone(x, y, mix(sky.tone(x, y), land, layer.coverage.row(y)[x]));
            }
        }
    }
}

void paintLamps(QImage& landscape) {
    QPainter painter(&landscape);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor warm(255, 206, 120);
    int number = 0;
    for (const Building& building : village) {
        for (const double place : {-0.27, 0.27}) {
            constexpr double lit = 0.55;
            if (luck(++number, 7, rise) > lit) continue;
            const double y = std::min(groundAt(rise, building.x) - 0.28 * building.height,
                                      landscapeHeight - quietHeight - 2.5);
            lamp(painter, {building.x + place * building.width, y}, {3.4, 4.2}, warm);
        }
    }
    lamp(painter, {mastX, groundAt(rise, mastX) - mastHeight}, {4, 4}, QColor(255, 70, 50));
    painter.strokePath(dishAerial(dishX, groundAt(rise, dishX), dishHeight).rim,
                       QPen(QColor(150, 165, 205, 200), 1.6));
}

}  // namespace vantrace
