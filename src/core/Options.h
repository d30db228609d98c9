// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <array>

namespace nubo::core {

enum class Option {
    DblClkExecute,
    PermitirAnims,
    EscribirLog,
    ConfigExcel,
    MostrarPro,
    MInstances
};

// The options record: six flags, each 0 or 1, shared by every window. It starts with every
// field 0, as the options window's unticked boxes do, until the options file is first read.
class Options final : public QObject
{
    Q_OBJECT
public:
    static constexpr std::array<Option, 6> all = {Option::DblClkExecute, Option::PermitirAnims,
                                                  Option::EscribirLog,   Option::ConfigExcel,
                                                  Option::MostrarPro,    Option::MInstances};

    explicit Options(QObject* parent = nullptr) : QObject(parent) {}

    int value(Option option) const { return m_values[index(option)]; }
    bool isOn(Option option) const { return value(option) != 0; }
    void setValue(Option option, int value);

    // The key under which the options file stores a field when it is saved.
    static QString keyOf(Option option);

signals:
    void changed(nubo::core::Option option, int value);

private:
    static std::size_t index(Option option) { return static_cast<std::size_t>(option); }
    std::array<int, 6> m_values{};
};

} // namespace nubo::core
