#include "dialogs/map_settings.h"

#include "core/labels.h"
#include "tests/dialogs/dialogs_test.h"

namespace vantrace {
namespace {

class MapSettingsTest : public DialogsTest {
  protected:
    void load() { Form_Load(form, state, services); }

    MapSettingsForm form;
};

TEST_F(MapSettingsTest, OpensWithTheDefaultsAndWithEmptyListsWithoutPictures) {
    load();
    EXPECT_EQ(form.LABgroundtrackLen, "90 Minutes");
    EXPECT_EQ(form.LABmapUpdate, "2 Seconds");
    EXPECT_TRUE(form.CHgroundtrack && form.CHfootprints && form.CHshowinfopane);
    EXPECT_FALSE(form.CHaltworld);
    EXPECT_EQ(form.COMmap.text, "Default");
    EXPECT_EQ(form.COMhormap.text, "hdefault");
    EXPECT_TRUE(form.COMmap.list.empty());
    EXPECT_TRUE(form.skin.isApplied);
    state.AppPath += "gone/";
    MapSettingsForm next;
    Form_Load(next, state, services);
    EXPECT_EQ(next.COMhormap.text, "hdefault");
    EXPECT_EQ(fakes.logged(labels::twoDconFormLoad), 2) << "a folder that is gone";
}

TEST_F(MapSettingsTest, BothListsHoldEveryPictureOfTheFolder) {
    for (const char* const name : {"b.jpg", "A.x.jpg", "c.png", "c.jpg.txt", "jpg", "nested/d.jpg"}) {
        fakes.folder.write(name, "");
    }
    std::filesystem::create_directory(fakes.folder.path() / "folder.jpg");
    fakes.settings.set("MapFile", "gone");
    load();
    EXPECT_EQ(form.COMmap.list, (Texts{"A.x", "b"}));
    EXPECT_EQ(form.COMhormap.list, form.COMmap.list);
    EXPECT_EQ(form.COMmap.text, "gone") << "a picture that is gone stands there all the same";
    form.COMhormap.select(0);
    COMhormap_Click(form, services);
    EXPECT_EQ(stored("HorizonFile"), "A.x");
    EXPECT_EQ(stored("MapFile"), "gone");
    form.COMmap.select(1);
    COMmap_Click(form, services);
    EXPECT_EQ(stored("MapFile"), "b");
}

TEST_F(MapSettingsTest, EachChangeIsStoredAtOnce) {
    load();
    form.SLgroundTrackLen = 300;
    SLgroundTrackLen_Change(form, services);
    EXPECT_EQ(form.LABgroundtrackLen, "300 Minutes");
    form.SLMapUpdate = 60;
    SLMapUpdate_Change(form, services);
    EXPECT_EQ(form.LABmapUpdate, "60 Seconds");
    EXPECT_EQ(stored("GroundTrackLen"), "300");
    EXPECT_EQ(stored("MapUpdate"), "60");
    form.CHgroundtrack = form.CHfootprints = form.CHshowinfopane = false;
    form.CHaltworld = true;
    CHgroundtrack_Click(form, services);
    EXPECT_EQ(stored("ShowFootprints"), "1") << "each its own";
    CHfootprints_Click(form, services);
    CHshowinfopane_Click(form, services);
    CHaltworld_Click(form, services);
    EXPECT_EQ((Texts{stored("ShowGroundtrack"), stored("ShowFootprints"), stored("ShowInfoPane"),
                     stored("AltWorld")}),
              (Texts{"0", "0", "0", "1"}));
    fakes.settings.set("GroundTrackLen", "5");
    fakes.settings.set("MapUpdate", "1e300");
    MapSettingsForm next;
    Form_Load(next, state, services);
    EXPECT_EQ(next.SLgroundTrackLen, 10) << "the end of the slider";
    EXPECT_EQ(next.SLMapUpdate, 60);
    EXPECT_EQ(stored("GroundTrackLen"), "5") << "looking changes nothing";
}

}  // namespace
}  // namespace vantrace
