#pragma once

/// Builder of odd design codes, as the text of a file like any other:
/// `DesignCodeBuilder().marks(limitsOfOne()).add(soundAction("G"), {2})`.

#include <QByteArray>

#include <string>
#include <utility>
#include <vector>

#include "lcdata/values/packed_text.h"
#include "lcdata/values/records.h"

namespace mrl::test {

class DesignCodeBuilder
{
  public:
    /// The marks and limits of the factors.
    DesignCodeBuilder& marks(const tagCDB_LC_ACT& record) { return m_marks = record, *this; }
    /// The next default action. @param oldNumbers the old action numbers that stand for it
    DesignCodeBuilder& add(const tagCDB_LC_ACT& record, std::vector<int> oldNumbers = {})
    {
        return m_actions.push_back({record, std::move(oldNumbers)}), *this;
    }
    /// An entry of the section "ACTIONS", such as ("TXT_GAMU", "none").
    DesignCodeBuilder& text(const std::string& entry, const std::string& label)
    {
        return m_texts += entry + " = " + label + "\n", *this;
    }
    DesignCodeBuilder& withoutActionsSection() { return m_actionsSection = false, *this; }
    DesignCodeBuilder& identity(int ntcode, int idcode, int country, int year)
    {
        return m_identity = {ntcode, idcode, country, year}, *this;
    }

    /// The text of the file.
    operator std::string() const
    {
        std::string out =
            "[DESIGN CODE]\nlabel = Test\nntcode = " + std::to_string(m_identity[0]) +
            "\nidcode = " + std::to_string(m_identity[1]) + "\ncountry = " + std::to_string(m_identity[2]) +
            "\nyear = " + std::to_string(m_identity[3]) + "\n[AVAILABILITY]\n" + factors(m_marks);
        if (m_actionsSection) {
            out += "[ACTIONS]\n" + m_texts;
        }
        for (const Entry& entry : m_actions) {
            out += section(entry);
        }
        return out;
    }

  private:
    struct Entry
    {
        tagCDB_LC_ACT record;
        std::vector<int> oldNumbers;
    };

    static std::string factors(const tagCDB_LC_ACT& record)
    {
        const std::pair<const char*, float> fields[] = {
            {"Gamu", record.gamu}, {"Gamf", record.gamf}, {"Gama", record.gama},  {"Psi0", record.psi0},
            {"Psi1", record.psi1}, {"Psi2", record.psi2}, {"Psi1s", record.psi1s}};
        std::string out;
        for (const auto& [name, value] : fields) { // nine digits bring back every float
            out += std::string(name) + " = " +
                   QByteArray::number(static_cast<double>(value), 'g', 9).toStdString() + "\n";
        }
        return out;
    }

    static std::string section(const Entry& entry)
    {
        const char* const categories[] = {"", "G", "P", "Q", "A", "E"};
        const char* const superpositions[] = {"PERM", "COND", "EXCL", "UNSI", "USEX",
                                              "ALEX", "EXEX", "PERC", "PERC"};
        const tagCDB_LC_ACT& record = entry.record;
        std::string name = trimmed(record.name);
        if (lcm_has_suffix(record.suffix)) {
            char suffix[4];
            lcm_word_to_chars(record.suffix, suffix);
            name += "_" + trimmed(suffix);
        }
        std::string out = "[ACTION " + name + "]\ntitle = " + lcm_title_text(record.title).toStdString() +
                          "\ncategory = " + categories[(record.partition >> 4) & 15] +
                          "\nsuperposition = " + superpositions[record.partition & 15] + "\n";
        if (record.partition >= 256) {
            out += "group = " + std::to_string(record.partition >> 8) + "\n";
        }
        for (std::size_t i = 0; i < entry.oldNumbers.size(); ++i) {
            out += (i == 0 ? "old = " : ", ") + std::to_string(entry.oldNumbers[i]);
        }
        return out + (entry.oldNumbers.empty() ? "" : "\n") + factors(record);
    }

    static std::string trimmed(const char (&field)[4])
    {
        return QByteArray(field, 4).trimmed().toStdString();
    }

    tagCDB_LC_ACT m_marks{};
    std::vector<Entry> m_actions;
    std::string m_texts;
    bool m_actionsSection = true;
    std::vector<int> m_identity{1, 1, 1, 2000};
};

} // namespace mrl::test
