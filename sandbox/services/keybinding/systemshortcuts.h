#pragma once

namespace sandbox {

/** A shortcut that comes with the desktop. */
struct SystemShortcut
{
    const char *id;
    const char *name;
    const char *accelerator; ///< as long as nobody has changed it
};

constexpr SystemShortcut systemShortcuts[] = {
    {"speech-to-text", "Speech to Text", "<Control><Alt>I"},
    {"text-to-speech", "Text to Speech", "<Control><Alt>P"},
    {"translation", "Translation", "<Control><Alt>T"},
};

} // namespace sandbox
