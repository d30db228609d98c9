// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace nubo::database {

// The RC4 stream cipher, with which the database header is stored.
QByteArray rc4(const QByteArray& key, const QByteArray& data);

} // namespace nubo::database
