// What the compiler can't check: includes point one way.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>

namespace {

namespace fs = std::filesystem;

// All lines below a folder that match a pattern, as "file: line".
std::vector<std::string> lines(const std::string& folder, const std::string& pattern,
                               const std::string& except = "/desktop/")
{
    const std::regex wanted(pattern);
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(VORN_SOURCE_DIR) / folder)) {
        if (!entry.is_regular_file() || entry.path().generic_string().find(except) != std::string::npos)
            continue;
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);)
            if (std::regex_search(line, wanted))
                found.push_back(entry.path().filename().string() + ": " + line);
    }
    return found;
}

std::vector<std::string> includes(const std::string& folder, const std::string& pattern,
                                  const std::string& except = "/desktop/")
{
    return lines(folder, "#include *[<\"]" + pattern, except);
}

TEST(boundaries, only_the_desktop_asks_for_the_system)
{
    const std::string names = "^ *#.*(_WIN(32|64)|__(linux|unix|APPLE|MINGW)|Q_OS_)";
    EXPECT_EQ(lines("src", names), std::vector<std::string>());
    EXPECT_FALSE(lines("src", names, "nowhere").empty()) << "the search finds nothing";
}

TEST(boundaries, only_the_desktop_includes_qt_and_sdl)
{
    EXPECT_EQ(includes("src", "(Q[A-Z]|Qt|SDL)"), std::vector<std::string>());
    EXPECT_EQ(includes("tests", "(Q[A-Z]|Qt|SDL)"), std::vector<std::string>());
    EXPECT_FALSE(includes("tests", "gtest").empty()) << "the search finds nothing";
}

TEST(boundaries, state_and_platform_include_nothing_above_them)
{
    const std::string above = "(flow|setup|ranges|gunnery|debrief|calibration|trainer)";
    EXPECT_EQ(includes("src/state", "(" + above + "|platform)"), std::vector<std::string>());
    // The desktop draws the scales of the sight from the numbers of the model.
    EXPECT_EQ(includes("src/platform", "(?!gunnery/sight.h)" + above, "main.cpp"),
              std::vector<std::string>());
    EXPECT_EQ(includes("src", "platform/(headless|desktop)", "/platform/"), std::vector<std::string>());
}

}   // namespace
