// Draws the one look that the skin has: a palette and a style sheet made of the skin's colours alone.
#pragma once

#include <QPalette>
#include <QString>

#include "core/skin.h"

class QWidget;

namespace vantrace {

/// Gives the window and everything in it the look; with `isApplied` false the desktop's own look shows again.
/// May be called at any time and any number of times; it reaches the controls and menus that are there by
/// then. Menus get the window's font.
///
/// Some things are told by properties that a form sets, and hold with and without the skin:
/// - `rowsAreColoured` (bool, on a list): the program colours the rows' texts, so the back is always dark and
///   a chosen row keeps its colour;
/// - `heading` (bool, on a label): large and bold in proportion to the window's font;
/// - `picture` (text, on a label): the SVG of the resources that it shows, as large as its least size.
/// Others count with the skin only:
/// - `quiet` (bool, on a label): captions that stand back behind the values;
/// - `panel` (bool, on a frame): a raised area with a line around it;
/// - `rule` (bool, on a frame): a fine line between things.
void applySkinStyle(QWidget& window, const Skin& skin);

/// The palette of the look, for all three colour groups.
QPalette skinPalette(const SkinValues& values);

/// The style sheet of the look. Each rule that gives a text colour gives the back that it stands on, too.
QString skinStyleSheet(const SkinValues& values);

/// The part of it that holds in both looks: dark backs for lists whose rows the program colours.
QString colouredRowsStyleSheet(const SkinValues& values);

}  // namespace vantrace
