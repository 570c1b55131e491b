// What the library asks of the platform, and all that it asks: each function is served once per platform.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ovant::c::platform {

// Answers of a message box.
enum class Answer : int { not_shown = 0, ok = 1, cancel = 2, retry = 4, yes = 6 };

// Flags of a message box; a beep takes the same sign of a stop.
constexpr unsigned retry_cancel = 0x05;
constexpr unsigned icon_hand = 0x10;
constexpr unsigned task_modal = 0x2000;

// Blocks until a person has answered, or gives not_shown at once where none can.
Answer message_box(const char *text, const char *title, unsigned flags);
void beep(unsigned type);

// Hands the process to a debugger; without one the process ends here.
void trap();

// The time of day in ctime's form, newline included.
constexpr std::size_t time_text_size = 26;
void time_text(char (&buffer)[time_text_size]);

void debug_output(const char *text);

// The path of the module that the handle stands for, of the host program for 0, cut to the size.  A path that cannot
// be told leaves the buffer as it was.
void module_file_name(const void *module, char *buffer, std::size_t size);

int thread_id();
void disable_thread_notifications(void *module);

// The calling thread's last-error value.
int last_error();
void set_last_error(int value);

} // namespace ovant::c::platform
