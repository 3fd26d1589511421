#include "hostlib/ui/table/column.h"

#include <algorithm>
#include <functional>

#include "hostlib/ui/table/number_text.h"

void MRL_H_TwColumn::setEntries(const std::list<ComboList>& list)
{
    entries.assign(list.begin(), list.end());
    entryOfId.clear();
    entryOfId.reserve(static_cast<int>(entries.size()));
    for (int i = static_cast<int>(entries.size()) - 1; i >= 0; --i) {
        entryOfId.insert(entries[static_cast<std::size_t>(i)].id, i);
    }
}

QString MRL_H_TwColumn::textOfId(int entryId) const
{
    const auto found = entryOfId.constFind(entryId);
    if (found != entryOfId.constEnd()) {
        return entries[static_cast<std::size_t>(*found)].text;
    }
    return entryId == -1 ? QString() : QString::number(entryId);
}

QHash<int, QString> MRL_H_TwColumn::textsById() const
{
    QHash<int, QString> texts;
    texts.reserve(entryOfId.size());
    for (auto i = entryOfId.constBegin(); i != entryOfId.constEnd(); ++i) {
        texts.insert(i.key(), entries[static_cast<std::size_t>(*i)].text);
    }
    return texts;
}

QSet<int> MRL_H_TwColumn::idsOfOtherText(const QHash<int, QString>& before) const
{
    const auto numberText = [](int entryId) { return entryId == -1 ? QString() : QString::number(entryId); };
    QSet<int> other;
    for (auto i = entryOfId.constBegin(); i != entryOfId.constEnd(); ++i) {
        if (before.value(i.key(), numberText(i.key())) != entries[static_cast<std::size_t>(*i)].text) {
            other.insert(i.key());
        }
    }
    for (auto i = before.constBegin(); i != before.constEnd(); ++i) {
        if (!entryOfId.contains(i.key()) && *i != numberText(i.key())) {
            other.insert(i.key());
        }
    }
    return other;
}

const ComboList* MRL_H_TwColumn::entryOfText(const QString& text) const
{
    const auto exact =
        std::find_if(entries.begin(), entries.end(), [&](const ComboList& e) { return e.text == text; });
    if (exact != entries.end()) {
        return &*exact;
    }
    const QString bare = text.trimmed();
    const auto loose = std::find_if(entries.begin(), entries.end(), [&](const ComboList& e) {
        return e.text.trimmed().compare(bare, Qt::CaseInsensitive) == 0;
    });
    return loose != entries.end() ? &*loose : nullptr;
}

int MRL_H_TwColumn::flagOfRole(int role) const
{
    const auto found = std::find(flagRoles.begin(), flagRoles.end(), role);
    return role >= Qt::UserRole && found != flagRoles.end() ? static_cast<int>(found - flagRoles.begin())
                                                            : -1;
}

int MRL_H_TwColumn::takeFlag(int role)
{
    const auto left = std::find(flagRoles.begin(), flagRoles.end(), 0);
    if (role >= Qt::UserRole && flagOfRole(role) < 0 && left != flagRoles.end()) {
        *left = role;
    }
    return flagOfRole(role);
}

QString MRL_H_TwColumn::numberText(double number) const
{
    if (kind == Kind::Whole) {
        return mrl::table::wholeNumberText(number);
    }
    if (number == description.value && !description.text.isNull()) {
        return description.text;
    }
    Worded& worded = m_worded[std::hash<double>()(number) % m_worded.size()];
    if (worded.text.isNull() || worded.number != number) {
        worded.number = number;
        worded.text = mrl_h_getDimStringFromVal(number, description.format, description.precision);
    }
    return worded.text;
}

bool MRL_H_TwColumn::allows(double number) const
{
    return description.firstBound >= description.secondBound ||
           (number >= description.firstBound && number <= description.secondBound);
}

double MRL_H_TwColumn::kept(double number) const
{
    return kind == Kind::Whole ? number : static_cast<double>(static_cast<float>(number));
}
