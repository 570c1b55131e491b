// The error handler of a tree that was made without one.
#include "frame/report.hpp"
#include "platform/platform.hpp"

#include <cstdio>

using namespace ovant::c;

extern "C" int Gen_SysError(int function, int error) {
    char time[platform::time_text_size] = "";
    platform::time_text(time);
    char title[84];
    std::snprintf(title, sizeof title, "Win32 MM-Error at Runtime %s", time);
    char message[260];
    std::snprintf(message, sizeof message, "Error %d\ndecteted in Function %d\nWorking Mode: %s\n", error, function,
                  version.working_mode);

    platform::beep(platform::icon_hand);
    switch (
        platform::message_box(message, title, platform::task_modal | platform::icon_hand | platform::retry_cancel)) {
    case platform::Answer::retry:
    case platform::Answer::ok:
    case platform::Answer::yes:
        break;
    default:
        platform::trap();
    }
    return 0;
}
