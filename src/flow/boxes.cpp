#include "flow/boxes.h"

#include "platform/files.h"
#include "trainer.h"

namespace vorn {

void tell(trainer& t, const std::string& text, const std::string& title)
{
    t.pc.message_box({.text = text, .title = title});
}

void inform(trainer& t, const std::string& text, const std::string& title)
{
    t.pc.message_box({.text = text, .title = title, .sign = box_sign::information});
}

bool asked(trainer& t, const std::string& question, const std::string& title, default_button on_return)
{
    return t.pc.message_box({.text = question,
                             .title = title,
                             .buttons = box_buttons::yes_no,
                             .sign = box_sign::question,
                             .on_return = on_return});
}

bool asked_with_name(trainer& t, std::initializer_list<std::string> question)
{
    return asked(t, headed(name_heading, question), name_title);
}

void confirmexit(trainer& t, const std::string& heading, const std::string& title)
{
    if (asked(t, headed(heading, {"ARE YOU SURE YOU WANT TO EXIT ?"}), title, default_button::no))
        t.pc.end_program();
}

void openhelp(trainer& t)
{
    t.pc.show_help(t.shared.rootpath + path_separator + "vorn.HLP");
}

std::string lines(std::initializer_list<std::string> text)
{
    constexpr const char* line_break = "\n\r";
    std::string all;
    for (const std::string& line : text) all += (&line == text.begin() ? "" : line_break) + line;
    return all;
}

std::string headed(const std::string& heading, std::initializer_list<std::string> text)
{
    const std::string blank(19, ' ');
    return lines({heading, blank, lines(text)});
}

}   // namespace vorn
