// The shipped manual: its links and pictures exist, and it mentions every control of every screen.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

#include "calibration/joycal.h"
#include "debrief/results.h"
#include "flow/intro.h"
#include "gunnery/screen.h"
#include "platform/files.h"
#include "platform/headless/headless_machine.h"
#include "ranges/rauthor.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace vorn {
namespace {

const std::string folder = VORN_SOURCE_DIR "/data/ranges/";

std::string manual()
{
    headless_machine pc;
    return read_file(pc, folder + "vorn.HLP").text.value_or("");
}

// All matches of the pattern's first group.
std::vector<std::string> found(const std::string& text, const char* pattern)
{
    const std::regex wanted(pattern);
    std::vector<std::string> all;
    for (std::sregex_iterator i(text.begin(), text.end(), wanted), end; i != end; ++i) all.push_back((*i)[1]);
    return all;
}

// Without tags, and with one space for any white space.
std::string words(const std::string& text)
{
    return std::regex_replace(std::regex_replace(text, std::regex("<[^>]*>"), ""), std::regex("\\s+"), " ");
}

TEST(manual, links_and_pictures_exist)
{
    const std::string text = manual();
    const auto links = found(text, "href=\"#([^\"]*)\""), names = found(text, "<a name=\"([^\"]*)\"");
    const std::set<std::string> places(names.begin(), names.end());
    EXPECT_GT(links.size(), 20U);
    EXPECT_EQ(places.size(), names.size()) << "a name is used twice";
    for (const std::string& link : links) EXPECT_TRUE(places.contains(link)) << link;
    EXPECT_EQ(found(text, "(href=\"[^#])"), std::vector<std::string>()) << "external link";
    const auto pictures = found(text, "<img src=\"([^\"]*)\"");
    EXPECT_GT(pictures.size(), 10U);
    for (const std::string& p : pictures) EXPECT_TRUE(std::filesystem::is_regular_file(folder + p)) << p;
}

TEST(manual, mentions_every_control)
{
    const std::string text = words(manual());
    headless_machine pc;
    trainer t(pc);
    for (form* f : {&t.intro.window, &t.startsim.window, &t.simulator.window, &t.thermal.window,
                    &t.results.window, &t.rauthor.window, &t.joycal.window})
        for (const screen_object* o : f->objects) {
            const bool works = o->kind == object_kind::button || o->kind == object_kind::checkbox ||
                               (o->kind == object_kind::option && o->Visible) ||
                               (o->kind == object_kind::label && o->Click);
            std::string caption = words(o->Caption);
            std::erase(caption, '&');
            if (!works || caption.empty()) continue;
            if (caption == "ammo select") caption = "AMMO SELECT";
            EXPECT_NE(text.find(without_padding(caption)), std::string::npos) << f->name << ": " << caption;
        }
}

}   // namespace
}   // namespace vorn
