// Windows whose place the settings keep.
#pragma once

class QWidget;

namespace vantrace {

struct WindowPlace;

/// Puts the window where the place says, unless no screen reaches there any more: then it has the size alone.
void placeWindow(QWidget& window, const WindowPlace& place);

/// Where the window is.
WindowPlace placeOf(const QWidget& window);

}  // namespace vantrace
