// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Rc4.h"

#include <array>
#include <numeric>

namespace nubo::database {

QByteArray rc4(const QByteArray& key, const QByteArray& data)
{
    std::array<quint8, 256> state{};
    std::iota(state.begin(), state.end(), 0);
    quint8 j = 0;
    for (int i = 0; i < 256; ++i) {
        j = quint8(j + state[i] + quint8(key.at(i % key.size())));
        std::swap(state[i], state[j]);
    }
    QByteArray out(data.size(), '\0');
    quint8 a = 0;
    quint8 b = 0;
    for (qsizetype n = 0; n < data.size(); ++n) {
        a = quint8(a + 1);
        b = quint8(b + state[a]);
        std::swap(state[a], state[b]);
        out[n] = char(quint8(data.at(n)) ^ state[quint8(state[a] + state[b])]);
    }
    return out;
}

} // namespace nubo::database
