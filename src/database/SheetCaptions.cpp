// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/SheetCaptions.h"

namespace nubo::database {

QString captionKey(const QString& caption)
{
    const QString decomposed = caption.trimmed().normalized(QString::NormalizationForm_D);
    QString key;
    key.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        if (c.category() != QChar::Mark_NonSpacing)
            key.append(c.toUpper());
    }
    return key;
}

std::optional<core::DetailField> detailFieldNamed(const QString& caption)
{
    const QString key = captionKey(caption);
    const QStringList captions = core::detailCaptions();
    for (int f = 0; f < captions.size(); ++f) {
        if (captionKey(captions.at(f)) == key)
            return core::DetailField(f);
    }
    return std::nullopt;
}

std::optional<core::DiscField> discFieldNamed(const QString& caption)
{
    const QString key = captionKey(caption);
    const QStringList captions = core::discCaptions();
    for (int f = 0; f < captions.size(); ++f) {
        if (captionKey(captions.at(f)) == key)
            return core::DiscField(f);
    }
    return std::nullopt;
}

QString discsSheetNameBeside(const QString& firstSheet)
{
    const QString name = core::discsTableName();
    return firstSheet.compare(name, Qt::CaseInsensitive) == 0 ? name + QStringLiteral(" 2") : name;
}

bool isDiscsSheetName(const QString& name)
{
    const QString discs = core::discsTableName();
    return name.compare(discs, Qt::CaseInsensitive) == 0 ||
           name.compare(discs + QStringLiteral(" 2"), Qt::CaseInsensitive) == 0;
}

} // namespace nubo::database
