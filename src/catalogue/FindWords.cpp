// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/FindWords.h"

#include "catalogue/DetailKeyText.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace nubo::catalogue {

namespace {

// Beyond this many words, checking which words hold others costs more than it saves.
constexpr std::size_t kMaxComparedWords = 64;
// Separate the texts of a key; folding turns control characters into blanks, so no folded text
// or word holds either. The second one ends the texts a plain word is looked for in.
constexpr char kFieldSeparator = '\n';
constexpr char kPlainEnd = '\x01';
constexpr int kAnywhere = -1;

// The columns in the order a key holds them: first those a plain word is looked for in, then
// those only a field name reaches.
constexpr std::array<Column, kColumnCount> kKeyOrder = {
    Column::Nombre, Column::Direccion, Column::Origen, Column::Titulo,  Column::Artista,
    Column::Album,  Column::Ano,       Column::Genero, Column::Formato, Column::Unidad,
    Column::Tamano, Column::Fecha,     Column::Pista,  Column::Duracion};
constexpr int kPlainColumns = 8;

bool isCombiningMark(char32_t c)
{
    return QChar::category(c) == QChar::Mark_NonSpacing ||
           QChar::category(c) == QChar::Mark_Enclosing ||
           QChar::category(c) == QChar::Mark_SpacingCombining;
}

// A character's base letter (its canonical decomposition's first character), case-folded;
// 0 for a combining mark, which folds to nothing.
char32_t foldChar(char32_t c)
{
    if (isCombiningMark(c))
        return 0;
    while (QChar::decompositionTag(c) == QChar::Canonical) {
        const QString parts = QChar::decomposition(c);
        if (parts.isEmpty())
            break;
        c = parts.at(0).isHighSurrogate() && parts.size() > 1
                ? QChar::surrogateToUcs4(parts.at(0), parts.at(1))
                : parts.at(0).unicode();
    }
    return QChar::toCaseFolded(c);
}

// Latin letters come up on nearly every row: their folds are worked out once.
constexpr char32_t kTableSize = 0x250;

const std::array<char32_t, kTableSize>& foldTable()
{
    static const std::array<char32_t, kTableSize> table = [] {
        std::array<char32_t, kTableSize> t{};
        for (char32_t c = 0; c < kTableSize; ++c)
            t[c] = foldChar(c);
        return t;
    }();
    return table;
}

void appendUtf8(char32_t c, std::string& out)
{
    if (c < 0x80) {
        out.push_back(char(c));
    } else if (c < 0x800) {
        out.push_back(char(0xC0 | (c >> 6)));
        out.push_back(char(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.push_back(char(0xE0 | (c >> 12)));
        out.push_back(char(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(char(0x80 | (c & 0x3F)));
    } else {
        out.push_back(char(0xF0 | (c >> 18)));
        out.push_back(char(0x80 | ((c >> 12) & 0x3F)));
        out.push_back(char(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(char(0x80 | (c & 0x3F)));
    }
}

// Whether word occurs in key. With SSE2, sixteen places are tried at once on the word's first
// and last bytes, and only places where both agree are compared: a short word of common letters
// ("co") would otherwise stop at nearly every byte.
bool contains(std::string_view key, std::string_view word)
{
    const std::size_t n = word.size();
    if (n > key.size())
        return false;
#if defined(__SSE2__)
    if (n >= 2) {
        const __m128i first = _mm_set1_epi8(word.front());
        const __m128i last = _mm_set1_epi8(word.back());
        const char* s = key.data();
        const std::size_t starts = key.size() - n + 1;
        std::size_t i = 0;
        for (; i + 16 <= starts; i += 16) {
            const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i));
            const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i + n - 1));
            auto both = unsigned(_mm_movemask_epi8(
                _mm_and_si128(_mm_cmpeq_epi8(a, first), _mm_cmpeq_epi8(b, last))));
            for (; both != 0; both &= both - 1) {
                if (std::memcmp(s + i + unsigned(__builtin_ctz(both)) + 1, word.data() + 1,
                                n - 2) == 0)
                    return true;
            }
        }
        return key.substr(i).find(word) != std::string_view::npos;
    }
#endif
    return key.find(word) != std::string_view::npos;
}

} // namespace

void FindWords::appendFolded(QStringView text, std::string& key)
{
    const auto& table = foldTable();
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        char32_t c = text[i].unicode();
        if (c < 0x80) {
            key.push_back(c < 0x20 ? ' ' : char(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c));
            continue;
        }
        if (QChar::isHighSurrogate(c) && i + 1 < size && text[i + 1].isLowSurrogate())
            c = QChar::surrogateToUcs4(char16_t(c), text[++i].unicode());
        const char32_t f = c < kTableSize ? table[c] : foldChar(c);
        if (f != 0)
            appendUtf8(f, key);
    }
}

std::string FindWords::folded(QStringView text)
{
    std::string key;
    key.reserve(std::size_t(text.size()));
    appendFolded(text, key);
    return key;
}

std::string FindWords::keyOf(const CatalogueRow& row, DetailKeyText& numbers)
{
    const core::FileDetails& d = row.details;
    std::string key;
    key.reserve(std::size_t(row.nombre.size() + row.direccion.size() + row.origen.size() +
                            d.title.size() + d.artist.size() + d.album.size() + d.genre.size() +
                            row.formato.size() + row.unidad.size() + 48));
    for (int slot = 0; slot < kColumnCount; ++slot) {
        if (slot > 0)
            key.push_back(slot == kPlainColumns ? kPlainEnd : kFieldSeparator);
        const Column column = kKeyOrder[std::size_t(slot)];
        if (!isDetailColumn(column))
            appendFolded(row.text(column), key);
        else if (!numbers.appendNumber(d, detailFieldOf(column), key))
            appendFolded(d.text(detailFieldOf(column)), key);
    }
    return key;
}

std::optional<Column> FindWords::columnNamed(QStringView name)
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> folds;
        for (const QString& caption : columnCaptions())
            folds.push_back(folded(caption));
        return folds;
    }();
    const auto found = std::find(names.begin(), names.end(), folded(name));
    if (found == names.end())
        return std::nullopt;
    return Column(int(found - names.begin()));
}

FindWords::Word FindWords::parsed(QStringView typed)
{
    const qsizetype colon = typed.indexOf(QLatin1Char(':'));
    if (colon > 0) {
        if (const std::optional<Column> column = columnNamed(typed.left(colon))) {
            const auto slot = std::find(kKeyOrder.begin(), kKeyOrder.end(), *column);
            return {int(slot - kKeyOrder.begin()), folded(typed.mid(colon + 1))};
        }
    }
    return {kAnywhere, folded(typed)};
}

bool FindWords::implies(const Word& word, const Word& other)
{
    const bool sameTexts =
        word.slot == other.slot || (other.slot == kAnywhere && word.slot < kPlainColumns);
    return sameTexts && word.text.find(other.text) != std::string::npos;
}

FindWords::FindWords(const QString& text)
{
    const QStringList typed = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : typed) {
        Word w = parsed(word);
        if (!w.text.empty())
            m_words.push_back(std::move(w));
    }
    // Longest first: the rarest words turn most rows away soonest.
    std::sort(m_words.begin(), m_words.end(), [](const Word& a, const Word& b) {
        if (a.text.size() != b.text.size())
            return a.text.size() > b.text.size();
        return a.slot != b.slot ? a.slot < b.slot : a.text < b.text;
    });
    m_words.erase(std::unique(m_words.begin(), m_words.end()), m_words.end());
    if (m_words.size() > kMaxComparedWords)
        return;
    // A word that a longer one implies adds nothing.
    std::vector<Word> kept;
    for (Word& word : m_words) {
        if (std::none_of(kept.begin(), kept.end(),
                         [&](const Word& longer) { return implies(longer, word); }))
            kept.push_back(std::move(word));
    }
    m_words = std::move(kept);
}

namespace {

// The texts of a key a plain word is looked for in.
std::string_view plainTexts(std::string_view key)
{
    return key.substr(0, key.find(kPlainEnd));
}

// The folded text of the column at slot.
std::string_view slotText(std::string_view key, int slot)
{
    std::size_t begin = 0;
    int at = 0;
    if (slot >= kPlainColumns) {
        begin = std::min(key.size(), key.find(kPlainEnd) + 1);
        at = kPlainColumns;
    }
    for (; at < slot && begin < key.size(); ++at)
        begin = std::min(key.size(), key.find(kFieldSeparator, begin) + 1);
    const char end = slot == kPlainColumns - 1 ? kPlainEnd : kFieldSeparator;
    return key.substr(begin, key.find(end, begin) - begin);
}

} // namespace

bool FindWords::matches(std::string_view key) const
{
    std::string_view plain;
    bool plainFound = false;
    for (const Word& word : m_words) {
        if (word.slot != kAnywhere) {
            if (!contains(slotText(key, word.slot), word.text))
                return false;
            continue;
        }
        if (!std::exchange(plainFound, true))
            plain = plainTexts(key);
        if (!contains(plain, word.text))
            return false;
    }
    return true;
}

bool FindWords::narrows(const FindWords& previous) const
{
    if (m_words.size() > kMaxComparedWords || previous.m_words.size() > kMaxComparedWords)
        return false;
    return std::all_of(previous.m_words.begin(), previous.m_words.end(), [this](const Word& old) {
        return std::any_of(m_words.begin(), m_words.end(),
                           [&](const Word& word) { return implies(word, old); });
    });
}

} // namespace nubo::catalogue
