// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/GenreTable.h"

#include <QStringList>

namespace nubo::tags {

namespace {

// The names exactly as the program has always shown them, spellings included ("Phychedelic",
// "Avantegarde", "power Ballad", "Comteporary Christian", ...): catalogues and users rely on them.
constexpr char kGenres[] =
    "Blues|Classic Rock|Country|Dance|Disco|Funk|Grunge|Hip-Hop|Jazz|Metal|New Age|"
    "Oldies|Other|Pop|R&B|Rap|Reggae|Rock|Techno|Industrial|Alternative|Ska|Death Metal|"
    "Pranks|Soundtrack|Euro-Techno|Ambient|Trip Hop|Vocal|Jazz+Funk|Fusion|Trance|"
    "Classical|Instrumental|Acid|House|Game|Sound Clip|Gospel|Noise|Alt. Rock|Bass|Soul|"
    "Punk|Space|Meditative|Instrumental Pop|Instrumental Rock|Ethnic|Gothic|Darkwave|"
    "Techno-Industrial|Electronic|Pop-Folk|Eurodance|Dream|Southern Rock|Comedy|Cult|"
    "Gangsta Rap|Top 40|Christian Rap|Pop/Punk|Jungle|Native American|Cabaret|New Wave|"
    "Phychedelic|Rave|Showtunes|Trailer|Lo-Fi|Tribal|Acid Punk|Acid Jazz|Polka|Retro|"
    "Musical|Rock & Roll|Hard Rock|Folk|Folk/Rock|National Folk|Swing|Fast-Fusion|Bebob|"
    "Latin|Revival|Celtic|Blue Grass|Avantegarde|Gothic Rock|Progressive Rock|"
    "Psychedelic Rock|Symphonic Rock|Slow Rock|Big Band|Chorus|Easy Listening|Acoustic|"
    "Humour|Speech|Chanson|Opera|Chamber Music|Sonata|Symphony|Booty Bass|Primus|"
    "Porn Groove|Satire|Slow Jam|Club|Tango|Samba|Folklore|Ballad|power Ballad|"
    "Rhythmic Soul|Freestyle|Duet|Punk Rock|Drum Solo|A Capella|Euro-House|Dance Hall|"
    "Goa|Drum & Bass|Club-House|Hardcore|Terror|indie|Brit Pop|Negerpunk|Polsk Punk|Beat|"
    "Christian Gangsta Rap|Heavy Metal|Black Metal|Crossover|Comteporary Christian|"
    "Christian Rock|Merengue|Salsa|Trash Metal|Anime|JPop|Synth Pop";

} // namespace

QString genreName(int index)
{
    static const QStringList names = QString::fromUtf8(kGenres).split(QLatin1Char('|'));
    if (index < 0 || index > kLastGenre || index >= names.size())
        return {};
    return names.at(index);
}

} // namespace nubo::tags
