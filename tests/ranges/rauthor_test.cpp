// The range author: an instructor makes, saves, opens and changes ranges, and fires on one.
#include "drill.h"
#include "state/item_text.h"

namespace vorn {
namespace {

constexpr double tick = timer_floor;

struct author : on_setup {
    rauthor_screen& s = t.rauthor;

    author()
    {
        d.data.put("moor.vrp", picture_head(2904, 489));   // 43560 x 7335 twips
        visit();
    }
    void new_range(const std::string& name, bool thermal, const std::string& picture)
    {
        pc.inputs = {name};
        pc.answers = {{thermal}};
        pc.choose(s.cmdnew, path(picture));
    }
    void visit() { pc.confirm(t.startsim.cmdeditrange); }
    void open(const practice_state& range)
    {
        d.data.put_range("own.arf", range);
        pc.choose(s.Cmdopen, path("own.arf"));
    }
    // Keeps an arrow pressed for this many ticks of its timer.
    void move(screen_object& arrow, int ticks)
    {
        pc.press(arrow);
        pc.wait(tick * (ticks + 0.5));
        pc.release(arrow);
    }
    void enter_range(const std::string& metres)
    {
        pc.inputs = {metres};
        pc.click(s.Lbltargetrange);
    }
    void place(int position)
    {
        pc.click(s.Lbltargetnum[position]);
        pc.click(s.Lblsavetarget);
    }
    void save(const std::string& name) { pc.choose(s.Cmdsave, path(name)); }
};

TEST_F(author, makes_a_new_range_saves_it_and_fires_on_it)
{
    EXPECT_FALSE(t.startsim.Frmmode.Enabled);
    move(s.Cmdbigup, 1);
    EXPECT_EQ(s.Lbltgtrange.Caption, "000") << "no range is proposed without a picture";
    new_range("WET MOOR", false, "moor.vrp");
    EXPECT_EQ(pc.dialogs.size(), 1U) << "no other picture is needed";
    place(1);
    EXPECT_NE(s.outcome.Caption.find("no range yet"), std::string::npos) << "000 is not a range";
    for (int n = 1; n <= 20; ++n) {
        move(n % 2 == 0 ? s.cmdright : s.cmdleft, n);
        if (n == 3) move(s.cmdup, 4);
        enter_range(std::to_string(700 + 50 * n));
        place(n);
        EXPECT_EQ(std::to_string(p.targetx[n]), s.Lblx.Caption);
        EXPECT_NEAR(p.targety[n], std::stod(s.Lbly.Caption), 0.5);
        expect_at(s.Img[n], s.Imgpoint.Left + 100, s.Imgpoint.Top + 100, n);
        EXPECT_EQ(s.Lbltarget.Caption, std::to_string(n));
        EXPECT_TRUE(s.Lbltargetnum[n].bold && s.Lbltargetnum[n].BackColor == colour::red);
        EXPECT_TRUE(s.Lbltargetnum[n].AccessibleName.starts_with("Placed"));
        EXPECT_FALSE(s.Lbltargetnum[n % 20 + 1].bold);
        EXPECT_TRUE(s.Lbltargetnum[n].ForeColor == colour::white &&
                    s.Lbltargetnum[n % 20 + 1].ForeColor == colour::text);
    }
    EXPECT_EQ(s.outcome.Caption, "");
    save("moor.arf");
    EXPECT_EQ(pc.dialogs.back().proposed, "WET MO.arf");
    EXPECT_EQ(p.rangefile, path("moor.arf"));
    const practice_state saved = p;

    pc.click(s.Cmdstart);
    EXPECT_EQ(shown_screens(pc), "startsim");
    EXPECT_EQ(t.startsim.Lblrangename.Caption, "WET MOOR            ");
    d.present(6);
    EXPECT_TRUE(p.recx[1] == saved.targetx[6] && p.recy[1] == saved.targety[6]);
    EXPECT_EQ(p.recrange[1], 1000);
    EXPECT_EQ(d.data.get("moor.arf"), range_file_bytes(saved));
    EXPECT_EQ(saved.targetrange[20], 1700);
}

TEST_F(author, moves_the_view_while_an_arrow_is_pressed)
{
    new_range("MOOR", false, "moor.vrp");
    // The middle of the picture is at the upper left corner of the window, the mark 1680 right, 1440 down.
    EXPECT_EQ(s.Lblx.Caption + ' ' + s.Lbly.Caption, "23460 5107.5");
    move(s.cmdleft, 3);
    EXPECT_TRUE(s.Imagerange.Left == -43560 / 2.0 + 300 && s.Imagerange.Top == -7335 / 2.0);
    pc.wait(1);
    EXPECT_EQ(s.Lblx.Caption, "23160") << "stops on release";
    move(s.Cmdbigleft, 1);
    move(s.Cmdbigright, 3);
    move(s.Cmdbigup, 1);
    EXPECT_EQ(s.Lblx.Caption + ' ' + s.Lbly.Caption, "23960 4707.5");
    // The picture is 7335 high, its band 2445 to 5499 in steps of 76. 4707.5 is in step 29; the first is 0.
    EXPECT_EQ(s.Lbltgtrange.Caption, "941");
    EXPECT_EQ(s.Imgpoint.Left, std::floor(23960 / (43560 / 14000.0) - 120));
    EXPECT_EQ(s.Imgpoint.Top, std::floor(4707.5 / (7335 / 5000.0) + 120));
    for (const auto& [arrow, along, limit, inwards] : {std::tuple{&s.cmdleft, &area::Left, -120, -1},
                                                       {&s.cmdright, &area::Left, 1 - 43560 + 3000, 1},
                                                       {&s.cmdup, &area::Top, -120, -1},
                                                       {&s.Cmddown, &area::Top, 100 - 7335 + 2500, 1}}) {
        s.Imagerange.*along = limit;
        move(*arrow, 3);
        EXPECT_EQ(s.Imagerange.*along, limit) << arrow->AccessibleName;
        s.Imagerange.*along = limit + inwards;
        move(*arrow, 3);   // one step, past the limit
        EXPECT_EQ(s.Imagerange.*along, limit - 99 * inwards) << arrow->AccessibleName;
    }
}

TEST_F(author, a_click_on_the_overview_moves_the_point_as_far_as_the_arrows_can)
{
    new_range("MOOR", false, "moor.vrp");
    const double across = 43560 / 14000.0, down = 7335 / 5000.0;
    const double left = s.Imagerange.Left;
    pc.click_at(s.Image1, 30000 / across, 3000 / down);
    EXPECT_EQ(s.Lblx.Caption + ' ' + s.Lbly.Caption, "29960 3007.5") << "by steps of 100 from 23460, 5107.5";
    EXPECT_EQ(s.Imagerange.Left, left - 6500);
    EXPECT_EQ(s.Lbltgtrange.Caption, "2349");   // in step 7 of the band; the first is 0
    for (const double corner : {0.0, 1.0}) {
        pc.click_at(s.Image1, corner * 14000, corner * 5000);
        const double x = s.pointx, y = s.pointy;
        for (screen_object* arrow :
             {corner > 0 ? &s.cmdright : &s.cmdleft, corner > 0 ? &s.Cmddown : &s.cmdup})
            move(*arrow, 3);
        EXPECT_TRUE(s.pointx == x && s.pointy == y) << "no arrow moves the point further";
        EXPECT_NEAR(x, corner > 0 ? 43560 - 1320 : 1800, 100);
        EXPECT_NEAR(y, corner > 0 ? 7335 - 1160 : 1560, 100);
    }
    pc.press(s.cmdright);
    pc.click_at(s.Image1, 7000, 2500);
    const double x = s.pointx;
    pc.wait(tick * 1.5);
    pc.release(s.cmdright);
    EXPECT_GT(s.pointx, x) << "a pressed arrow keeps its direction";
}

TEST_F(author, shows_the_target_of_the_chosen_icon_at_the_size_of_its_range)
{
    new_range("MOOR", false, "moor.vrp");
    EXPECT_FALSE(s.shown_target.Visible) << "no range yet";
    enter_range("1");
    EXPECT_TRUE(s.shown_target.Visible);
    enter_range("300");
    EXPECT_EQ(s.shown_target.Height, 480) << "nearer than 600 counts as 600";
    enter_range("1000");
    EXPECT_EQ(s.shown_target.Width, 660 - 1000 / 4.0);
    EXPECT_TRUE(s.shown_target.Visible && s.shown_target.Pale);
    new_range("MOOR", true, "moor.vrp");
    EXPECT_TRUE(pc.dialogs.back().picture);
    enter_range("1000");
    EXPECT_EQ(s.shown_target.Width, 560 - 1000 / 4.0);
    d.data.put("target icons/own.ico", picture_head(64, 64));
    pc.choose(s.Imgtarget[3], path("target icons/own.ico"));
    EXPECT_EQ(s.shown_target.Picture.width, 960);
    pc.click(s.Imgtarget[1]);   // the dialog is cancelled
    EXPECT_EQ(s.shown_target.Picture, s.Imgtarget[1].Picture);
    pc.click(s.Imgtarget[3]);
    move(s.cmdup, 1);
    EXPECT_EQ(s.shown_target.Width, 560 - std::stod(s.Lbltgtrange.Caption) / 4);
    p.targetsize = 8;   // as set on the set-up screen
    pc.activate(t.startsim.window);
    pc.activate(s.window);
    enter_range("2200");
    EXPECT_EQ(s.shown_target.Width, 560 - 2200 / 8.0);
}

TEST_F(author, proposes_ranges_only_within_the_ground_band)
{
    practice_state r = plain_range(sight_kind::visual);
    r.rangepicture = "moor.vrp";
    open(r);
    EXPECT_EQ(s.Lbltgtrange.Caption, "725") << "proposed for the middle, when a range is opened";
    move(s.Cmdbigdown, 1);
    EXPECT_EQ(s.Lbly.Caption, "5507.5");
    EXPECT_EQ(s.Lbltgtrange.Caption, "725") << "no proposal below the band";
    enter_range("950");
    move(s.cmdright, 2);
    EXPECT_EQ(s.Lbltgtrange.Caption, "950") << "kept by a move to the side";
    place(4);
    EXPECT_EQ(p.targetrange[4], 950);
    move(s.cmdup, 1);
    EXPECT_EQ(s.Lbltgtrange.Caption, "644");
    move(s.cmdup, 40);
    EXPECT_EQ(s.Lbltgtrange.Caption, "3000") << "the last proposal in the band is kept above it";
    for (const auto& [arrow, edge, inside] :
         {std::tuple{&s.cmdup, &s.bandtop, 100}, {&s.Cmddown, &s.bandbottom, -100}}) {
        s.Imagerange.Top = -3000;
        s.pointy = *edge + inside;
        move(*arrow, 1);
        EXPECT_TRUE(s.pointy == *edge && s.Lbltgtrange.Caption == "3000") << "the edges are outside the band";
    }
}

TEST_F(author, accepts_a_typed_range_only_if_a_position_can_store_it)
{
    enter_range("1400");
    for (const char* wrong :
         {"", "  ", "far", "-1", "32768", "99999999999", "12.5", "12 34", "1e3", "0x10"}) {
        pc.boxes.clear();
        enter_range(wrong);
        ASSERT_EQ(pc.boxes.size(), 1U) << wrong;
        EXPECT_EQ(s.Lbltgtrange.Caption, "1400") << wrong;
    }
    pc.boxes.clear();
    pc.click(s.Lbltargetrange);   // cancelled
    enter_range("0");
    EXPECT_EQ(s.Lbltgtrange.Caption, "0");
    enter_range(" 32767 ");
    EXPECT_EQ(s.Lbltgtrange.Caption, "32767");
    EXPECT_TRUE(pc.boxes.empty());
}

TEST_F(author, refuses_pictures_that_are_too_small)
{
    d.data.put("narrow.vrp", picture_head(20, 800));
    new_range("OWN", false, "narrow.vrp");
    pc.click(s.Cmdstart);
    visit();
    move(s.Cmddown, 1);   // to 7540; the band is still that of the placeholder, 6666 to 15000
    EXPECT_EQ(s.Lbltgtrange.Caption, "2616");
    const struct {
        unsigned width, height;
        bool taken;
    } sizes[] = {
        {1334, 400, true}, {1333, 400, false}, {1334, 399, false}, {1, 1, false}, {60000, 3000, true}};
    for (const auto& z : sizes) {
        d.data.put("own.vrp", picture_head(z.width, z.height));
        pc.boxes.clear();
        new_range("OWN", true, "own.vrp");
        EXPECT_EQ(s.Imagerange.Visible, z.taken) << z.width << " x " << z.height;
        EXPECT_EQ(pc.boxes.back().title, z.taken ? "NEW RANGE" : "PICTURE FAULT");
    }

    EXPECT_TRUE(s.Imagerange.Left == -450000 && s.Imagerange.Top == -22500) << "its middle";
    d.data.put("tiny.vrp", picture_head(10, 10));
    d.data.put("range1.vrp", picture_head(2000, 500));
    new_range("OWN", false, "tiny.vrp");   // no other picture is chosen, so the standby picture is used
    EXPECT_EQ(s.Lblwide.Caption, "30000");
    EXPECT_EQ(s.Imgpoint.Left, std::floor(s.pointx / (30000 / 14000.0) - 120));
    EXPECT_EQ(p.rangepicture.trimmed(), "range1.vrp");

    d.data.put("range1.vrp", picture_head(20, 5));
    pc.inputs = {"A", "B", "C"};
    pc.answers = {{false}, {true}, {false}, {true}, {false}, {false}, {false}};
    pc.files = {path("tiny.vrp"), path("tiny.vrp"), path("tiny.vrp")};
    pc.boxes.clear();
    pc.click(s.cmdnew);   // another picture? yes, yes, no; after the standby picture: no
    EXPECT_EQ(s.Textname.Text, "C");
    EXPECT_EQ(pc.boxes.size(), 7U);
    EXPECT_FALSE(s.Imagerange.Visible);
    pc.click(s.Cmdstart);
    visit();
    EXPECT_EQ(s.Lblwide.Caption + ' ' + s.Lblhigh.Caption, "300 75") << "of the picture that was tried last";
}

TEST_F(author, a_cancelled_dialog_or_a_wrong_picture_ends_a_new_range)
{
    new_range("FIRST", true, "moor.vrp");
    for (int n = 1; n <= 20; ++n) place(n);
    save("thermal.arf");
    EXPECT_EQ(p.rangetype, "THERMAL");
    pc.click(s.cmdnew);
    EXPECT_EQ(s.Textname.Text, "FIRST") << "cancelled at the name: unchanged";
    enter_range("1000");
    pc.inputs = {"A NAME OF MORE THAN TWENTY LETTERS"};
    pc.answers = {{false}};
    pc.click(s.cmdnew);   // cancelled at the picture: the new name and type stay
    EXPECT_EQ(p.rangename.text(), "A NAME OF MORE THAN ");
    EXPECT_EQ(s.Lblrangetype.Caption, "VISUAL");
    EXPECT_EQ(s.shown_target.Width, 660 - 1000 / 4.0) << "the size on the visual sight";
    save("visual.arf");
    EXPECT_EQ(p.rangetype, "VISUAL");
    d.data.put("text.vrp", "no picture at all");
    pc.boxes.clear();
    for (const char* wrong : {"text.vrp", "missing.vrp", "wavs"}) {
        new_range("OWN", false, wrong);
        EXPECT_FALSE(s.Imagerange.Visible) << wrong;
        EXPECT_EQ(pc.boxes.size(), 1U) << "only the question for the type";
        EXPECT_NE(s.outcome.Caption.find("could not be loaded"), std::string::npos);
        pc.boxes.clear();
    }
    EXPECT_EQ(p.rangepicture.trimmed(), path("moor.vrp"));
    new_range("OWN", false, "moor.vrp");
    EXPECT_EQ(s.outcome.Caption, "");
}

TEST_F(author, shortens_a_long_picture_path_below_the_ranges_and_refuses_others)
{
    const std::string folder = "a folder whose name is very long indeed, so long that no file can hold it";
    std::filesystem::create_directories(from_utf8(path(folder)));
    std::filesystem::create_directories(from_utf8(path("below")));
    d.data.put("below/" + std::string(40, 'm') + ".vrp", picture_head(2904, 489));
    d.data.put(folder + "/moor.vrp", picture_head(2904, 489));
    pc.boxes.clear();
    new_range("OWN", false, "below/" + std::string(40, 'm') + ".vrp");
    EXPECT_EQ(p.rangepicture.trimmed(), native("below/" + std::string(40, 'm') + ".vrp"));
    EXPECT_EQ(pc.boxes.size(), 1U);
    new_range("OWN", false, folder + "/moor.vrp");
    EXPECT_NE(d.last_box().find("TOO LONG"), std::string::npos);
}

TEST_F(author, saves_only_a_range_with_a_name_and_all_positions)
{
    new_range("", false, "moor.vrp");
    pc.click(s.Cmdsave);
    EXPECT_EQ(d.last_box(), "YOU MUST GIVE THE FILE A VALID NAME");
    pc.type(s.Textname, "A \"B\"");
    for (int n = 2; n <= 20; ++n) place(n);
    pc.click(s.Cmdsave);
    EXPECT_EQ(d.last_box(), "NOT ALL TARGETS ARE ALLOCATED");
    EXPECT_EQ(d.data.get("own.arf"), "");
    place(1);
    save("no such folder/own.arf");
    EXPECT_NE(s.outcome.Caption.find("could not be saved"), std::string::npos);
    EXPECT_TRUE(pc.dialogs.back().save && pc.dialogs.back().suffix == "arf");
    pc.click(s.Cmdsave);   // cancelled
    EXPECT_NE(p.rangefile, path("own.arf"));
    save("own.arf");
    EXPECT_EQ(d.data.get("own.arf").substr(0, 24), "\"A 'B'               \"\r\n");
    EXPECT_EQ(pc.dialogs.back().proposed, "A \"B\".arf");
}

TEST_F(author, opens_a_range_and_shows_every_position)
{
    practice_state r = plain_range(sight_kind::thermal);
    r.rangepicture = "moor.vrp";
    r.targetx[7] = 31114;
    r.targety[7] = 3000;
    open(r);
    EXPECT_EQ(s.Textname.Text + ' ' + s.Lblrangetype.Caption, "PLAIN THERMAL THERMAL");
    EXPECT_EQ(s.Imgtarget[3].Picture.width, 480);
    EXPECT_EQ(s.Image1.Picture.width, 43560) << "the overview";
    expect_at(s.Img[7], 9879, 2164, "marker");
    EXPECT_EQ(p.rangefile, path("own.arf"));
    save("copy.arf");
    EXPECT_EQ(d.data.get("copy.arf"), range_file_bytes(r));
}

// The screen shows what was read before the failure. The range file of the practice stays the same.
TEST_F(author, shows_an_incomplete_range_as_far_as_it_can_be_read)
{
    practice_state r = plain_range(sight_kind::thermal);
    r.rangepicture = "moor.vrp";
    const std::string whole = range_file_bytes(r);
    const std::string before = p.rangefile;
    d.data.put("cut.arf", first_lines(whole, 6 + 4 * 3));
    pc.choose(s.Cmdopen, path("cut.arf"));
    EXPECT_EQ(s.Textname.Text, "PLAIN THERMAL");
    EXPECT_EQ(s.shown_target.Width, 560 - std::stod(s.Lbltgtrange.Caption) / 4) << "as on a thermal sight";
    EXPECT_EQ(s.Lbltargetnum[3].BackColor, colour::red);
    EXPECT_EQ(s.Lbltargetnum[4].BackColor, colour::darkred);
    r.rangename = "PICTURELESS";
    r.rangepicture = "none.vrp";
    open(r);
    EXPECT_EQ(s.Textname.Text, "PICTURELESS");
    EXPECT_NE(s.outcome.Caption.find("Its picture none.vrp could not be loaded"), std::string::npos);
    EXPECT_EQ(p.rangefile, before);
    r.rangepicture = "moor.vrp";
    for (const auto icon : {&practice_state::targeticon1, &practice_state::targeticon3}) {
        practice_state iconless = r;
        iconless.*icon = "none.ico";
        open(iconless);
        EXPECT_TRUE(s.outcome.Caption.ends_with("One of its icons could not be loaded."));
    }
    d.data.put("thin.vrp", picture_head(9, 2));   // the band isn't high enough for 40 steps
    r.rangepicture = "thin.vrp";
    r.targetx[1] = 2147483647;
    open(r);
    const std::string range = s.Lbltgtrange.Caption;
    move(s.Cmdbigup, 3);
    move(s.Cmdbigdown, 3);
    EXPECT_EQ(s.Lblwide.Caption, "135");
    EXPECT_EQ(s.Lbltgtrange.Caption, range) << "no range is proposed";
}

TEST_F(author, changes_an_icon_only_if_it_can_be_loaded)
{
    d.data.put("target icons/own.ico", picture_head(64, 64));
    pc.choose(s.Imgtarget[2], path("target icons/own.ico"));
    EXPECT_TRUE(pc.dialogs.back().title == "OPEN TARGETS" && pc.dialogs.back().picture);
    EXPECT_EQ(icon_path(pc, p.rootpath, p.targeticon2), path("target icons/own.ico"));
    const std::string kept = p.targeticon2;
    pc.choose(s.Imgtarget[2], path("visualrange.arf"));
    EXPECT_EQ(p.targeticon2, kept);
    EXPECT_TRUE(s.outcome.Caption.ends_with("visualrange.arf could not be loaded as an icon"));
    EXPECT_EQ(s.Imgtarget[2].Picture.width, 960);

    pc.choose(s.Imgtarget[3], path("target icons/target3.ico"));
    pc.click(s.Cmdstart);
    d.data.remove("target icons/own.ico");
    d.data.put("target icons/target3.ico", picture_head(16, 16));
    d.data.put("target icons/target1.ico", picture_head(8, 8));
    visit();
    EXPECT_EQ(s.Imgtarget[1].Picture.width, 120);
    EXPECT_EQ(s.Imgtarget[2].Picture.width, 960) << "the old picture stays if the icon can't be loaded";
    EXPECT_EQ(s.Imgtarget[3].Picture.width, 240) << "the other icons are loaded";
}

// Between visits the set-up reads names and types of ranges, but only a practice replaces the open range.
TEST_F(author, keeps_its_range_until_a_practice_reads_another)
{
    practice_state own = plain_range(sight_kind::visual), other = own;
    own.rangename = "OWN";
    own.rangepicture = "moor.vrp";
    own.targetx[7] = 31114;
    other.rangename = "OTHER";
    other.targeticon2 = "/target icons/target1.ico";
    d.data.put_range("other.arf", other);
    open(own);
    pc.click(s.Cmdstart);
    pc.choose(t.startsim.Cmdopenrange, path("other.arf"));
    EXPECT_EQ(t.startsim.Lblrangename.Caption, "OTHER               ");
    visit();
    save("copy.arf");
    EXPECT_EQ(d.data.get("copy.arf"), range_file_bytes(own));
    pc.click(s.Cmdstart);
    pc.choose(t.startsim.Cmdopenrange, path("other.arf"));
    d.set_up();
    pc.click(d.screen().Cmdmain);
    visit();
    save("copy.arf");
    other.rangename = "OWN";   // the name is taken from the text box
    EXPECT_EQ(d.data.get("copy.arf"), range_file_bytes(other));
}

TEST_F(author, lies_over_the_set_up_and_keeps_its_state)
{
    new_range("OWN", false, "moor.vrp");
    move(s.cmdleft, 5);
    place(3);
    const double left = s.Imagerange.Left;
    pc.close_window(s.window);           // returns to the set-up
    pc.click(t.startsim.cmdeditrange);   // answered no
    EXPECT_EQ(front(pc), &t.startsim.window);
    pc.confirm(t.startsim.cmdeditrange);
    EXPECT_EQ(s.Imagerange.Left, left);
    EXPECT_EQ(s.Lblx.Caption, "23460") << "each arrival points at the middle";
    for (const screen_object* frame : {&s.Frame2, &s.Frame3, &s.Frame4, &s.Frame5, &s.Frame2}) {
        pc.event(frame->MouseMove);
        EXPECT_FALSE(s.lblhelp.Visible) << frame->Caption;
        pc.event(s.Cmdsave.MouseMove);
        pc.wait(2);
        EXPECT_TRUE(s.lblhelp.Visible && s.lblhelp.Top == s.Cmdsave.Top + 350);
    }
    pc.activate(t.startsim.window);
    d.set_up();   // the gunnery screen hides the range author
    EXPECT_EQ(s.window.state, form_state::hidden);
    pc.click(d.screen().Cmdmain);
    pc.confirm(t.startsim.cmdeditrange);
    EXPECT_EQ(s.Lbltargetnum[3].BackColor, colour::red);
    EXPECT_FALSE(s.lblhelp.Visible || s.Timhelp.Enabled) << "the hint of the last visit is gone";
    pc.event(s.Frame6.parent->MouseMove);
    EXPECT_EQ(s.Lblinfo.Caption,
              "Shows the veiw through the sight, target grid locations and distance to target");
}

// Files ----------------------------------------------------------------------------------------------------

TEST_F(author, each_reader_of_a_range_file_takes_only_its_own_part)
{
    practice_state read;
    const auto file = [&](const std::string& bytes) {
        d.data.put("test.arf", bytes);
        return path("test.arf");
    };
    const std::string whole = range_file_bytes(plain_range(sight_kind::thermal));
    read.targetrange[20] = 7;
    EXPECT_EQ(read_range(pc, file(first_lines(whole, 66)), read), "");
    EXPECT_TRUE(read.targetrange[19] == 2400 && read.targetrange[20] == 7);
    EXPECT_NE(read_range(pc, file("\"CUT\"\r\n" + first_lines(whole, 65)), read), "");
    EXPECT_EQ(read.rangename.trimmed(), "PLAIN THERMAL") << "an incomplete file changes nothing";
    item_reader incomplete(first_lines(whole, 68));
    EXPECT_FALSE(take_range(incomplete, read, [](auto...) { return true; }));
    EXPECT_EQ(read_range_head(pc, file("\"short\"\r\n\"p\"\r\n\"THERMAL\""), read), "");
    EXPECT_EQ(read.rangename.text(), "short               ");
    EXPECT_EQ(read.rangepicture.trimmed(), "thermalrange.trp") << "the picture of the open range stays";
    EXPECT_NE(read_range_head(pc, file("\"kept\"\r\n\"p\"\r\nTHERMAL"), read), "");
    EXPECT_EQ(read.rangename.trimmed(), "kept");
}

TEST_F(author, stored_paths_with_either_separator_are_found)
{
    const std::string root = p.rootpath;
    const std::string icon = path("target icons/target1.ico");
    for (const char* stored : {"/target icons/target1.ico", "\\target icons\\target1.ico",
                               "target icons\\TARGET1.ICO", "\\Target Icons/target1.ico"})
        EXPECT_TRUE(std::filesystem::equivalent(from_utf8(icon_path(pc, root, stored)), from_utf8(icon)))
            << stored;
    EXPECT_EQ(icon_path(pc, root, icon), icon);
    EXPECT_EQ(icon_path(pc, root, "/none.ico"), path("none.ico"));
    EXPECT_EQ(stored_icon(pc, root, icon), native("/target icons/target1.ico"));
    EXPECT_EQ(stored_icon(pc, root, "/elsewhere/x.ico"), "/elsewhere/x.ico");
    EXPECT_EQ(stored_icon(pc, root, root + "x/y.ico"), root + "x/y.ico") << "beside the folder, not inside";
    EXPECT_TRUE(file_exists(pc, "VISUALRANGE.ARF"));
}

}   // namespace
}   // namespace vorn
