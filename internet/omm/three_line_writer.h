// One message of mean elements as a three-line set.
#pragma once

#include <string>

#include "internet/omm/element_message.h"

namespace vantrace {

/// Of the two one is empty.
struct ThreeLineSet {
    /// Name, line 1 and line 2, each ended by CR LF.
    std::string text;
    /// Which set it is, and why it can't be had in this form.
    std::string refusal;
};

/// The set is refused where a number is missing, is none, or doesn't fit its columns; where the message is
/// not about SGP4 elements around the earth in TEME and UTC; and where `parseElementLines` wouldn't take the
/// lines. The numbers of element set and revolution roll over in their columns, as they do in published sets,
/// and are 0 where they aren't told; so are the derivatives of the mean motion, which SGP4 doesn't read.
/// A name that could be taken for an element line or a remark has "0 " in front; a set without a name is
/// called by its catalogue number.
ThreeLineSet makeThreeLineSet(const ElementMessage& message);

}  // namespace vantrace
