// The shipped manual: its links and pictures exist, and it mentions the buttons and options of all screens.
#include <regex>
#include <set>
#include <sstream>

#include "drill.h"

namespace vorn {
namespace {

const std::string folder = VORN_SOURCE_DIR "/data/ranges/";
const std::string manual = bytes_of(folder + "vorn.HLP");

// All matches of the pattern's first group.
std::set<std::string> found(const char* pattern)
{
    const std::regex wanted(pattern);
    std::set<std::string> all;
    for (std::sregex_iterator i(manual.begin(), manual.end(), wanted), end; i != end; ++i)
        all.insert((*i)[1]);
    return all;
}

// The text without tags, and with one space for each run of white space.
std::string words(const std::string& text)
{
    return std::regex_replace(std::regex_replace(text, std::regex("<[^>]*>"), ""), std::regex("\\s+"), " ");
}

TEST(manual, links_and_pictures_exist)
{
    const auto places = found("<a name=\"([^\"]*)\"");
    for (const std::string& link : found("href=\"([^\"]*)\""))
        EXPECT_TRUE(link.starts_with('#') ? places.contains(link.substr(1))
                                          : std::filesystem::is_regular_file(folder + link))
            << link;
    const auto pictures = found("<img src=\"([^\"]*)\"");
    EXPECT_GT(pictures.size(), 10U);
    for (const std::string& p : pictures) EXPECT_TRUE(std::filesystem::is_regular_file(folder + p)) << p;
}

// The contents mark the chapters of the screen from which the manual was opened. F1 opens it from any screen.
TEST(manual, has_chapters_for_every_screen)
{
    std::set<std::string> named, screens;
    for (const std::string& names : found("<!--for ([a-z ]+)-->")) {
        std::istringstream all(names);
        for (std::string name; all >> name;) named.insert(name);
    }
    headless_machine pc;
    trainer t(pc);
    for (const form* f : forms(t)) screens.insert(f->name);
    EXPECT_EQ(named, screens);
}

TEST(manual, mentions_every_control)
{
    const std::string text = words(manual);
    headless_machine pc;
    trainer t(pc);
    for (const form* f : forms(t))
        for (const screen_object* o : f->objects) {
            const bool works = o->kind == object_kind::button || o->kind == object_kind::checkbox ||
                               (o->kind == object_kind::option && o->Visible) ||
                               (o->kind == object_kind::label && o->Click);
            std::string caption = words(o->Caption);
            std::erase(caption, '&');
            if (caption == "ammo select") caption = "AMMO SELECT";
            EXPECT_TRUE(!works || text.find(without_padding(caption)) != std::string::npos)
                << f->name << ": " << caption;
        }
}

}   // namespace
}   // namespace vorn
