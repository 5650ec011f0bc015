// Sprites for combining with a map bit by bit: sharp edges, each with its mask.
#pragma once

#include <QImage>
#include <QString>

namespace vantrace {

struct Sprite {
    /// Black where it is transparent, never black elsewhere.
    QImage picture;
    /// Black where the sprite shows, white elsewhere.
    QImage mask;
};

/// A square SVG, so many pixels to each of its units. Throws std::runtime_error where it can't be read.
Sprite drawSprite(const QString& svgFile, int density);

}  // namespace vantrace
