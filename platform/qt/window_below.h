// Which window a dialog stands over.
#pragma once

class QWidget;

namespace vantrace {

/// The active window, or one that is on screen while none is active yet, as at the start; null where there is
/// none.
QWidget* windowBelow();

}  // namespace vantrace
