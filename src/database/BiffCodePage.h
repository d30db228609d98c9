// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>

#include <optional>

namespace nubo::database {

// Decodes the 8-bit texts of Excel 5/95 workbooks in the code page their CODEPAGE record
// names; Windows-1252 when the record is absent or names a code page not known here.
class BiffCodePage final
{
public:
    explicit BiffCodePage(quint16 codePage = 1252);

    QString decode(QByteArrayView bytes) const;

private:
    bool m_utf16 = false;
    mutable std::optional<QStringDecoder> m_decoder; // empty: the built-in Windows-1252 table
};

} // namespace nubo::database
