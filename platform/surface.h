// The raster that everything is painted on: the map, its shade, the horizon, and their pictures.
//
// Measures and places are in pixels, from the top left corner, x to the right and y down; pixel x reaches
// from x to x + 1. A surface for a dense screen has several device pixels to each of them, along each axis.
// Whoever paints needs not know: pens, sprites and print keep their size, and places between two pixels
// become finer.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/colour.h"
#include "platform/text_painter.h"

namespace vantrace {

/// A rectangle whose edges may lie between pixels.
struct Area {
    Area(double areaX, double areaY, double areaWidth, double areaHeight)
        : x(areaX), y(areaY), width(areaWidth), height(areaHeight) {}
    double x;
    double y;
    double width;
    double height;
};

/// A place on a surface, or off it.
struct Place {
    double x = 0;
    double y = 0;
    bool operator==(const Place&) const = default;
};

enum class RasterOperation { bitAnd, bitOr };

/// How a picture gets another size.
enum class Sampling {
    /// Each pixel is that of the picture under its middle: no new colours.
    nearest,
    /// Averaged over its area where the picture shrinks; on a straight line between two pixels where it
    /// grows.
    linear,
    /// The same, but growing on a cubic through four pixels: crisper edges, for photographs.
    cubic
};

enum class PenAfterText { stays, goesToEnd };

/// Raster with a pen. What lies off the surface is clipped, at no cost, wherever it is. A place that is not a
/// number, or is beyond 1e300, is passed over: nothing is drawn, and the pen stays.
class Surface {
  public:
    /// The greatest width and height, in device pixels.
    static constexpr int maximumSize = 32767;
    /// In pixels. A wider or a thinner pen becomes one of these.
    static constexpr int maximumPenWidth = 100;

    /// A surface without a pixel.
    Surface() : Surface(0, 0) {}
    /// Black, with a pen 1 pixel wide at (0,0), in black, and a white brush. Throws std::invalid_argument for
    /// a size below 0 or too great, and for device pixels per pixel outside 1 to 8.
    Surface(int width, int height, double devicePixelsPerPixel = 1);
    /// A picture, from one word 0xAARRGGBB per device pixel, row by row; AA is not looked at. Throws
    /// std::invalid_argument as above, and where the words are not as many as the size asks for.
    Surface(int deviceWidth, int deviceHeight, std::span<const std::uint32_t> words,
            double devicePixelsPerPixel = 1);

    /// Another size. All becomes background and the pen goes to (0,0); colours, pen width and font stay.
    void resize(int width, int height, double devicePixelsPerPixel = 1);

    int width() const { return m_width; }
    int height() const { return m_height; }
    double devicePixelsPerPixel() const { return m_ratio; }
    int deviceWidth() const { return m_deviceWidth; }
    int deviceHeight() const { return m_deviceHeight; }
    /// The device pixels as words 0xFFRRGGBB, row by row, without gaps.
    std::span<const std::uint32_t> words() const { return m_words; }
    /// The colour in the middle of a pixel. Throws std::out_of_range off the surface.
    Colour pixel(int x, int y) const;

    void setBackgroundColour(Colour colour) { m_backgroundColour = colour; }
    void setFillColour(Colour colour) { m_fillColour = colour; }
    void setPenColour(Colour colour) { m_penColour = colour; }
    void setPenWidth(int width);
    void setFont(const Font& font) { m_font = font; }
    Place pen() const { return m_pen; }

    /// All becomes background, and the pen goes to (0,0).
    void clear();
    void movePen(double x, double y);
    /// A dot as wide as the pen, round where it has the pixels to be. Width 1 is the pixel that (x,y),
    /// rounded, is the corner of; width 2 lies around that corner. The pen goes there.
    void plot(double x, double y);
    /// From the pen to (x,y), both ends with their dots. The ends count rounded to device pixels; between
    /// them, the same pixels are set however much of the line lies off the surface (to within one where an
    /// end is beyond 1e9 device pixels). The pen goes to (x,y).
    void lineTo(double x, double y);
    /// The outline of a circle about the middle of the dot at (x,y): what is no farther from it than half a
    /// pen's width. The pen goes to (x,y). A radius below 0 or without a number is passed over.
    void circle(double x, double y, double radius);
    /// A line of text with its top left corner at the pen, in the pen's colour. The background shows through.
    /// A halo, where the painter gives one, is dark around light letters and light around dark ones.
    void print(TextPainter& painter, std::string_view text, PenAfterText after = PenAfterText::stays);

    /// Fills with the fill colour what is reached from the pixel by steps to the left, right, up and down
    /// without crossing the border's colour. Nothing happens from a border pixel or off the surface.
    void floodFill(int x, int y, Colour border);

    /// Combines a rectangle of the source, bit by bit, with what is here at (x,y). What lies off one of the
    /// two surfaces is passed over. Between surfaces of unlike density the nearest pixels are taken.
    void blit(int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
              RasterOperation operation);

    /// Whether both have the same size and density.
    bool hasSizeOf(const Surface& other) const;
    /// Takes over all pixels of a surface that has the same size and density; one that hasn't is passed over.
    void copy(const Surface& source);

    /// Copies an area of the source over an area of this surface, at its size. The destination's edges are
    /// rounded to device pixels, so that areas with a common edge meet. Growing looks beyond the source's
    /// area by up to two pixels, where the source has them, so that pieces of one picture show no seam. Tells
    /// whether the areas are sound: finite, of a size above 0, the source's within the source but for the one
    /// pixel by which rounded halves may exceed it (where the picture's edge is repeated). Of what is not
    /// sound nothing is drawn.
    bool stretch(const Area& destination, const Surface& source, const Area& sourceArea,
                 Sampling sampling = Sampling::cubic);

    /// As stretch, blended with what is here: (alpha x source + (255 - alpha) x destination) / 255 for each
    /// channel, rounded to the nearest. An alpha outside 0 to 255 is not sound either.
    bool blend(const Area& destination, const Surface& source, const Area& sourceArea, int alpha,
               Sampling sampling = Sampling::linear);

  private:
    std::uint32_t* row(int deviceY);
    const std::uint32_t* row(int deviceY) const;
    /// Both ends included; they may lie anywhere. The row lies on the surface.
    void fillRun(double first, double last, int deviceY, std::uint32_t word);
    /// Left or top edge, in device pixels, of the dot at a place.
    double dotEdge(double place) const;
    void stamp(double left, double top, std::uint32_t word);
    /// Lays a colour on, as much as the bitmap says, whose top left corner is there, in device pixels.
    void lay(double left, double top, int bitmapWidth, int bitmapHeight, const std::uint8_t* bitmap,
             std::uint32_t word);
    template <class PaintRow>
    bool scale(const Area& destination, const Surface& source, const Area& sourceArea, Sampling sampling,
               PaintRow paintRow);

    int m_width = 0;
    int m_height = 0;
    double m_ratio = 1;
    int m_deviceWidth = 0;
    int m_deviceHeight = 0;
    std::vector<std::uint32_t> m_words;

    Colour m_backgroundColour = 0;
    Colour m_fillColour = 0xFFFFFF;
    Colour m_penColour = 0;
    Font m_font;
    Place m_pen;
    int m_penWidth = 1;
    /// A row of the pen's dot: first and last device pixel set, counted from the dot's left edge.
    struct Run {
        int first;
        int last;
    };
    std::vector<Run> m_dot;
};

}  // namespace vantrace
