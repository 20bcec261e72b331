#pragma once

#include "sandbox/controlcenter/moduleregistry.h"

namespace controlcenter {

/**
 * The entries of @p entries that contain every word of @p text, in any of their names and in any
 * letter case. Settings whose own name begins with the text come first, then settings that contain
 * it, then what is found only by its page or module. Empty for a blank text.
 */
QVector<SearchEntry> findEntries(const QVector<SearchEntry> &entries, const QString &text);

} // namespace controlcenter
