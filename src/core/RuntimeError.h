// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::core {

// A run-time error as the program reports it: its number and its Spanish description.
struct RuntimeError
{
    int number = 0;
    QString description;

    static RuntimeError fromNumber(int number);
};

namespace errors {
constexpr int kFileNotFound = 53;
constexpr int kDeviceUnavailable = 68;
constexpr int kPathNotFound = 76;
constexpr int kPathFileAccess = 75;
constexpr int kInvalidPicture = 481;
} // namespace errors

} // namespace nubo::core
