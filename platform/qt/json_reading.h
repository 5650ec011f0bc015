// JSON to values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

struct JsonMember {
    std::string name;
    /// Numbers in their shortest form that reads back to the same double; true, false; empty for null.
    std::string text;
};

struct JsonObjectReading {
    /// The object's members and those of the objects within it, in the order of their names. Arrays are left
    /// out.
    std::vector<JsonMember> members;
    /// Why the text is no JSON object, else empty.
    std::string failure;
};

/// Reads a text that is one JSON object. Throws nothing; memory is some multiple of the text's length.
JsonObjectReading readJsonObject(std::string_view text);

}  // namespace vantrace
