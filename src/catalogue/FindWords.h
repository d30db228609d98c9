// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace nubo::catalogue {

// The words typed into a find: a row matches when every word appears in its name, folder or
// group, compared without regard to case or accents ("cancion" finds "Canción").
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
    // The folded texts a row is matched against: NOMBRE, DIRECCION and ORIGEN.
    static std::string keyOf(const QString& nombre, const QString& direccion,
                             const QString& origen);

private:
    std::vector<std::string> m_words; // folded, distinct, longest first
};

} // namespace nubo::catalogue
