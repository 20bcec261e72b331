#pragma once

#include <QString>

namespace controlcenter {

/**
 * The key combination in the keybinding daemon's form, such as "<Control><Alt>T"; @p key is a
 * Qt::Key. Empty when it cannot be a shortcut: a modifier alone, a key that has no name there, or
 * one that would be missing when typing because it is pressed without Control, Alt or Super.
 */
QString accelerator(int key, Qt::KeyboardModifiers modifiers);

} // namespace controlcenter
