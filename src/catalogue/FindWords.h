// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::catalogue {

class DetailKeyText;

// The words typed into a find: a row matches when every word appears in one of its texts:
// NOMBRE, DIRECCION, ORIGEN, TITULO, ARTISTA, ALBUM, AÑO or GENERO, compared without regard to
// case or accents ("cancion" finds "Canción"). A word "campo:palabra" whose field is a column's
// caption (case and accents ignored: "año:1979", "ano:1979", "formato:flac") must appear in that
// column, which may be any of them, FORMATO, UNIDAD and the numbers included; a word whose
// field names no column ("12:30", "re:mix") is a plain word, colon and all. A field with
// nothing after its colon asks nothing.
//
// Texts are compared folded: lower case, accents and other combining marks dropped, as UTF-8,
// so a search is a plain byte search over keys folded once.
class FindWords final
{
public:
    FindWords() = default;
    explicit FindWords(const QString& text);

    // Blanks only: every row matches.
    bool isEmpty() const { return m_words.empty(); }
    bool matches(std::string_view key) const;
    // True when every row these words match is also matched by previous: then only the rows
    // previous matched need testing again.
    bool narrows(const FindWords& previous) const;
    bool operator==(const FindWords&) const = default;

    // Appends text folded to key.
    static void appendFolded(QStringView text, std::string& key);
    static std::string folded(QStringView text);
    // The folded texts of a row's columns, as words are matched against them; numbers writes
    // the numeric columns (one per caller: it keeps what it learnt of the local time).
    static std::string keyOf(const CatalogueRow& row, DetailKeyText& numbers);
    // The column a field name names (a caption, case and accents ignored), or none.
    static std::optional<Column> columnNamed(QStringView name);

private:
    struct Word
    {
        int slot = -1; // where in a key it must appear: a column's place, or -1 for any text
        std::string text;
        bool operator==(const Word&) const = default;
    };
    static Word parsed(QStringView typed);
    // Whether every row that has word also has other.
    static bool implies(const Word& word, const Word& other);

    std::vector<Word> m_words; // folded, distinct, longest first
};

} // namespace nubo::catalogue
