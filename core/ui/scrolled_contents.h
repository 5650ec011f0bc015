// Windows whose whole contents may be scrolled, where the screen is too small for them.
#pragma once

class QScrollArea;
class QWidget;

namespace vantrace {

/// Lets the back of the window show through; a scroll area paints one of its own otherwise, without the skin.
void makeTransparent(QScrollArea& area);

/// Makes a window at least so large that the scroll area, its central widget, needn't scroll.
void growToContents(QWidget& window, const QScrollArea& area);

}  // namespace vantrace
