#include "core/skin.h"

#include "core/config.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(ApplySkin, GivesTheLookForOneAndChangesNothingOtherwise) {
    TestServices test;
    Skin skin;
    ApplySkin(test.services, skin);
    EXPECT_TRUE(skin.isApplied) << "the default";
    SaveConfig(test.services, settings::skin, "0");
    ApplySkin(test.services, skin);
    EXPECT_TRUE(skin.isApplied) << "taken away only by remove";
    skin.remove();
    for (const char* const other : {"0", "2", "yes"}) {
        SaveConfig(test.services, settings::skin, other);
        ApplySkin(test.services, skin);
        EXPECT_FALSE(skin.isApplied) << other;
    }
}

}  // namespace
}  // namespace vantrace
