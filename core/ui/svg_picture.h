// Drawn pictures in labels.
#pragma once

#include <QString>

class QLabel;

namespace vantrace {

/// Makes the program's own pictures (":/art/...") available; they are not while nobody has asked.
void providePictures();

/// Shows an SVG of the resources in a label, sharp at any scale of the screen: as large as the label's least
/// size, or as the picture itself where the label names none.
void showPicture(QLabel& label, const QString& resource);

}  // namespace vantrace
