// Windows of the views: where they stand, and how dense their screen is.
#pragma once

class QWidget;

namespace vantrace {

struct WindowPlace;

/// Puts the window where the place says, unless no screen reaches there any more: then it has the size alone.
void placeWindow(QWidget& window, const WindowPlace& place);

/// Device pixels to each pixel of a surface that the window shows; 1 on a screen that has fewer.
double surfaceDensity(const QWidget& window);

/// Where the window is.
WindowPlace placeOf(const QWidget& window);

}  // namespace vantrace
