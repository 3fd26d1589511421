#include "exchange/record_cells.h"

#include <algorithm>

#include "exchange/decimals.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/packing.h"
#include "lcdata/values/partition.h"
#include "rules/action_row.h"
#include "rules/load_case_row.h"

namespace mrl::exchange {

namespace {

constexpr int OLD_NUMBERS = 1000; // action words below are old action numbers

/// A number into a cell; empty for a factor that is not set.
void put(std::string& cell, float value, Kind kind)
{
    cell.clear();
    if (kind != Kind::Factor || value != LC_UNDEFINED) {
        appendNumber(cell, value);
    }
}

/// The number of a cell. An empty one is the undefined value.
bool take(const std::string& cell, float& value)
{
    if (cell.empty()) {
        value = LC_UNDEFINED;
        return true;
    }
    const auto number = numberOf(cell);
    value = number.value_or(value);
    return number.has_value();
}

/// The factors of the cells of a sheet. @return false when one is no number
bool takeFactors(Sheet sheet, const Cells& cells, LCM_PerFactor<float>& factors)
{
    const std::vector<Column>& columns = columnsOf(sheet);
    bool fine = true;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].kind == Kind::Factor) {
            fine = take(cells[i], factors[columns[i].factor->id]) && fine;
        }
    }
    return fine;
}

/// The name of a word of plain letters, as almost all are; empty for any other one.
std::string plainName(int word)
{
    std::string name(sizeof word, ' ');
    lcm_word_to_chars(word, name.data());
    name.resize(name.find_last_not_of(' ') + 1);
    const bool isPlain = std::all_of(name.begin(), name.end(), [](char c) { return c > ' ' && c <= '~'; });
    return isPlain ? name : std::string();
}

} // namespace

std::string titleText(const std::uint32_t (&field)[LC_TITLE_WORDS])
{
    if (field[0] == 0) {
        return {};
    }
    const QByteArray utf8 = lcm_title_text(field).toUtf8();
    return {utf8.constData(), static_cast<std::size_t>(utf8.size())};
}

std::string actionWordText(int word)
{
    if (word >= LC_BLANK_WORD) {
        if (std::string name = plainName(word); !name.empty()) {
            return name;
        }
    }
    return word == LC_ACTION_NONE           ? std::string()
           : word == LC_ACTION_IMPERFECTION ? "IMP"
                                            : lcm_word_name(word).toStdString();
}

int actionWordOf(const std::string& name)
{
    const QString upper = QString::fromStdString(name).toUpper();
    if (upper.isEmpty() || upper == QLatin1String("NONE")) {
        return LC_ACTION_NONE;
    }
    if (const auto old = wholeNumberOf(name); old && *old > 0 && *old < OLD_NUMBERS) {
        return *old;
    }
    return upper == QLatin1String("IMP") ? LC_ACTION_IMPERFECTION : lcm_normalise_code(upper);
}

void cellsOf(int code, const tagCDB_LC_ACT& action, Cells& cells)
{
    const std::vector<Column>& columns = columnsOf(Sheet::Actions);
    cells.resize(columns.size());
    cells[ACTION_NAME] = lcm_code_name(code).toStdString();
    cells[ACTION_TITLE] = titleText(action.title);
    cells[ACTION_PARTITION] = lcm_word_of_id(LCM_PARTITIONS, lcm_partition_id(action.partition));
    cells[ACTION_SUPERPOSITION] = lcm_word_of_id(LCM_SUPERPOSITIONS, lcm_superposition_id(action.partition));
    for (std::size_t i = ACTION_SUPERPOSITION + 1; i < columns.size(); ++i) {
        put(cells[i], lcm_shown_factor(action, *columns[i].factor), Kind::Factor);
    }
}

void cellsOf(int number, const tagCDB_LC_CTRL& loadCase, Cells& cells)
{
    const std::vector<Column>& columns = columnsOf(Sheet::LoadCases);
    cells.resize(columns.size());
    cells[CASE_NUMBER] = std::to_string(number);
    cells[CASE_TITLE] = titleText(loadCase.title);
    cells[CASE_ACTION] = actionWordText(loadCase.action);
    const LCM_LoadCaseFactors factors = lcm_stored_factors(loadCase);
    for (std::size_t i = CASE_ACTION + 1; i < columns.size(); ++i) {
        const Column& column = columns[i];
        put(cells[i], column.kind == Kind::Number ? loadCase.*column.value : factors[column.factor->id],
            column.kind);
    }
}

std::optional<tagCDB_LC_ACT> actionOf(const Cells& cells)
{
    LCM_ActionCells row;
    const auto partition = lcm_id_of_word(LCM_PARTITIONS, cells[ACTION_PARTITION]);
    const auto superposition = lcm_id_of_word(LCM_SUPERPOSITIONS, cells[ACTION_SUPERPOSITION]);
    if (!partition || !superposition || !takeFactors(Sheet::Actions, cells, row.factors)) {
        return std::nullopt;
    }
    row.name = lcm_code_text(lcm_pack_word(QString::fromStdString(cells[ACTION_NAME])));
    row.title = QString::fromStdString(cells[ACTION_TITLE]);
    row.partition = *partition;
    row.superposition = *superposition;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        row.factors[factor.id] = lcm_factor_to_store(factor, row.factors[factor.id]);
    }
    tagCDB_LC_ACT record{};
    lcm_action_record(row, record);
    return record;
}

std::optional<tagCDB_LC_CTRL> loadCaseOf(const Cells& cells)
{
    tagCDB_LC_CTRL record{};
    LCM_LoadCaseFactors factors;
    if (!takeFactors(Sheet::LoadCases, cells, factors)) {
        return std::nullopt;
    }
    lcm_title_pack(QString::fromStdString(cells[CASE_TITLE]), record.title, LC_TITLE_WORDS);
    record.action = actionWordOf(cells[CASE_ACTION]);
    const std::vector<Column>& columns = columnsOf(Sheet::LoadCases);
    for (std::size_t i = CASE_ACTION + 1; i < columns.size(); ++i) {
        if (columns[i].kind == Kind::Number &&
            (cells[i].empty() || !take(cells[i], record.*columns[i].value))) {
            return std::nullopt;
        }
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const LCM_Factor* minor = lcm_partner_of(factor);
        if (factor.packing != LCM_FactorPacking::Minor) {
            record.*factor.loadCaseField =
                minor == nullptr ? factors[factor.id] : lcm_pack_pair(factors[factor.id], factors[minor->id]);
        }
    }
    return record;
}

} // namespace mrl::exchange
