#pragma once

#include <list>
#include <unordered_map>
#include <vector>

#include <QString>

#include "host/mrl_table.h"
#include "lcdata/values/records.h"

/// What the action column offers: none, the imperfection, the project's actions, and markers of actions that
/// load cases name and the project lacks. An id is looked up in constant time; the first entry of an id
/// counts.
class LCM_ActionList
{
  public:
    /// @param none, imperfection texts of the two fixed entries; an action labelled so stands for no action
    LCM_ActionList(const QString& none, const QString& imperfection,
                   const std::vector<tagCDB_LC_ACT>& actions);
    LCM_ActionList() = default;

    const std::list<ComboList>& entries() const { return m_entries; }
    /// Whether it offers the same entries in the same order.
    bool isSame(const LCM_ActionList& other) const;
    bool contains(int id) const { return m_byId.count(id) != 0; }
    bool isMarker(int id) const;
    /// The text that a cell with this id shows; null when there is no such entry.
    QString text(int id) const;
    /// The code that a marker was made for; the id itself for any other entry.
    int codeOf(int id) const;

    /// Where an action cell ends up that is to show a code.
    struct Binding
    {
        int id;
        bool marker; ///< the project lacks the action
    };
    /// The entry of the code, else that of its lower-case form, else a marker, which is appended unless it is
    /// there already.
    Binding bind(int code);

    /// Whether entries were appended since the last call.
    bool takeGrown();

  private:
    struct Entry
    {
        QString text;
        int code;
        bool marker;
    };
    void append(const QString& text, int id, int code, bool marker);

    std::list<ComboList> m_entries;
    std::unordered_map<int, Entry> m_byId;
    bool m_grown = false;
};
