// Load cases as one buffer for numpy.
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "exchange/record_cells.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/packed_text.h"
#include "python/reading.h"
#include "python/values.h"
#include "rules/load_case_row.h"

namespace mrl::python {

namespace py = pybind11;

namespace {

constexpr std::size_t TITLE_LENGTH = 2 * LC_TITLE_WORDS;
constexpr std::size_t ACTION_LENGTH = 8;
constexpr std::size_t FACTORS = LCM_FACTORS.size();
constexpr float NONE = std::numeric_limits<float>::quiet_NaN();

/// One element of the array. Texts are as numpy has them: four bytes a character, zeros behind the last one.
struct CaseRow
{
    std::int32_t number;
    char32_t action[ACTION_LENGTH];
    char32_t title[TITLE_LENGTH];
    float deadWeight[3];
    float factor;
    float factors[FACTORS];
    bool follows[FACTORS];
};

template <std::size_t N>
void setText(const std::u32string& text, char32_t (&field)[N])
{
    std::copy_n(text.begin(), std::min(text.size(), N), field);
}

class RowFiller
{
  public:
    void fill(const LCM_StoredLoadCase& loadCase, CaseRow& row)
    {
        const tagCDB_LC_CTRL& record = loadCase.record;
        row.number = loadCase.number;
        setText(nameOf(record.action), row.action);
        setText(lcm_title_text(record.title).toStdU32String(), row.title);
        row.deadWeight[0] = record.dlx;
        row.deadWeight[1] = record.dly;
        row.deadWeight[2] = record.dlz;
        row.factor = record.factor;
        const LCM_LoadCaseFactors stored = lcm_stored_factors(record);
        for (const LCM_Factor& factor : LCM_FACTORS) {
            const auto place = static_cast<std::size_t>(factor.id);
            row.follows[place] = stored[factor.id] == LC_UNDEFINED;
            row.factors[place] = row.follows[place] ? NONE : stored[factor.id];
        }
    }

  private:
    /// Load cases are many and action words few.
    const std::u32string& nameOf(int word)
    {
        const auto [known, isNew] = m_names.try_emplace(word);
        if (isNew) {
            const std::string name = exchange::actionWordText(m_words.resolved(word));
            known->second = std::u32string(name.begin(), name.end());
        }
        return known->second;
    }

    LCM_ActionWords m_words;
    std::unordered_map<int, std::u32string> m_names;
};

py::dtype rowType()
{
    py::list names;
    py::list formats;
    py::list offsets;
    const auto add = [&](const std::string& name, const py::object& format, std::size_t offset) {
        names.append(name);
        formats.append(format);
        offsets.append(offset);
    };
    add("number", py::str("<i4"), offsetof(CaseRow, number));
    add("action", py::str("<U" + std::to_string(ACTION_LENGTH)), offsetof(CaseRow, action));
    add("title", py::str("<U" + std::to_string(TITLE_LENGTH)), offsetof(CaseRow, title));
    std::size_t offset = offsetof(CaseRow, deadWeight);
    for (const char* name : {"dlx", "dly", "dlz"}) {
        add(name, py::str("<f4"), offset);
        offset += sizeof(float);
    }
    add("factor", py::str("<f4"), offsetof(CaseRow, factor));
    offset = offsetof(CaseRow, factors);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        add(attributeOf(factor), py::str("<f4"), offset);
        offset += sizeof(float);
    }
    add("follows", py::make_tuple("?", py::make_tuple(FACTORS)), offsetof(CaseRow, follows));
    return py::dtype(names, formats, offsets, sizeof(CaseRow));
}

} // namespace

py::array casesArray(const Session& session)
{
    auto rows = std::make_unique<std::vector<CaseRow>>();
    RowFiller filler;
    for (LCM_LoadCaseWalk walk(session.db()); walk.next();) {
        if (walk.current().isOwn()) {
            filler.fill(walk.current(), rows->emplace_back());
        }
    }
    session.db(); // throws where the walk met an error
    const std::size_t count = rows->size();
    void* const data = rows->data();
    // Python frees the rows when the last array over them goes.
    const py::capsule owner(rows.get(), [](void* held) { delete static_cast<std::vector<CaseRow>*>(held); });
    rows.release();
    return py::array(rowType(), std::vector<std::size_t>{count}, {}, data, owner);
}

} // namespace mrl::python
