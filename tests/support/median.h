#pragma once

#include <QVector>

#include <algorithm>

namespace testsupport {

/** The median of @p values, of which there must be one: one pause of the machine does not move it.
 */
template <typename T>
T median(QVector<T> values)
{
    std::sort(values.begin(), values.end());
    const int middle = values.size() / 2;
    return values.size() % 2 ? values.at(middle) : (values.at(middle - 1) + values.at(middle)) / 2;
}

} // namespace testsupport
