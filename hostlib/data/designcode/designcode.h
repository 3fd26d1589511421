#pragma once

/// Design codes in files: reading one, finding the shipped ones, and the design code of a database.
/// The contract of the file itself is docs/design-code-file.md.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/mrl_export.h"
#include "lcdata/values/records.h"
#include "lcdata/values/situation.h"

namespace mrl::designcode {

/// One default action of a design code.
struct DefaultAction
{
    tagCDB_LC_ACT record{};      ///< kind 1, every field as the file states it
    int code = 0;                ///< the action code: first four bytes of the joined name, blank-padded
    std::string name;            ///< the joined name, for example "G" or "Q_A"
    std::vector<int> oldNumbers; ///< old action numbers that stand for this action, 1 to 999
    int line = 0;                ///< line of the action's section in the file
};

/// One entry of the section "ACTIONS".
struct Label
{
    std::string key;  ///< for example "TXT_GAMU"
    std::string text; ///< UTF-8, as the file states it
};

/// What a warning goes by.
enum class WarningRule : int {
    GamaWithoutActionsSection,
    LimitBelow0,
    LabelTooLong,
    LabelNoneBesideMark,
    OldNumberMissing,
    FactorNotMarked,
    GamaNotStated,
    PlainActionNotAhead,
    SituationNotReadable,
    SituationFactorNotMarked,
    SituationActionUnknown,
    SituationUnfavourableBelowFavourable,
    ActionInNoSituation
};

/// The stable id of a rule, such as "limit-below-0".
MRL_HOST_API const char* idOf(WarningRule rule);

/// Something that loads but would trap the user of the design code.
struct Warning
{
    WarningRule rule{};
    int line = 0; ///< 1-based; 0 when it concerns the file as a whole
    std::string text;
};

/// What one design-code file says.
struct DesignCode
{
    std::string name;                   ///< the file's name without folder and ending
    std::string file;                   ///< path as it was opened
    std::string label;                  ///< one line for people, UTF-8
    int ntcode = 0;                     ///< national code
    int idcode = 0;                     ///< code number
    int country = 0;                    ///< country
    int year = 0;                       ///< year
    tagCDB_LC_ACT availability{};       ///< marks and limits in the factor fields, partition word 0
    std::vector<DefaultAction> actions; ///< in the order of the file
    bool hasActionsSection = false;     ///< the section "ACTIONS" stands in the file, even if empty
    std::vector<Label> texts;           ///< entries of the section "ACTIONS"
    std::optional<float> kfi;           ///< section "COMBINATIONS", entry KFI
    std::optional<float> xsi;           ///< section "COMBINATIONS", entry XSI
    std::map<std::string, float>
        constants; ///< all entries of "COMBINATIONS": what the terms of situations name
    std::vector<LCM_Situation> situations; ///< how the actions are combined, in the order of the file
    std::vector<Warning> readingWarnings; ///< what was told while the file was read; warnings() has them, too
};

/// Why a file cannot be read as a design code.
struct Error
{
    std::string file;
    int line = 0; ///< 1-based; 0 when it concerns the file as a whole
    std::string reason;

    /// "FILE:LINE: REASON", without the line when there is none.
    MRL_HOST_API std::string text() const;
};

using ReadResult = std::variant<DesignCode, Error>;

/// Reads a design-code file. Never throws for what the file holds.
MRL_HOST_API ReadResult read(const std::string& file);

/// Reads a design code from text. @param file the name that errors carry
MRL_HOST_API ReadResult parse(std::string_view content, const std::string& file);

/// What would trap the user of a design code, as far as the file alone tells it; empty for every shipped
/// one. The factors of the default actions are judged above this library.
MRL_HOST_API std::vector<Warning> warnings(const DesignCode& code);

/// A design-code file that was found on the search path.
struct Found
{
    std::string name; ///< what a project stores to name it
    std::string file; ///< its path
};

/// The folders that are searched, the first match wins: each of the colon list MRL_DESIGNCODE_PATH, then
/// share/mrl/designcodes beside the folder of this library. A build tree has that folder as well.
MRL_HOST_API std::vector<std::string> searchPath();

/// The design-code files on the search path, by name.
MRL_HOST_API std::vector<Found> list();

/// The file of a design code. @param name a name on the search path, or a path that holds a '/'
/// @return nothing when there is no such file
MRL_HOST_API std::optional<std::string> find(const std::string& name);

/// A design code that is shared between all that use it, or the reason why there is none.
struct Loaded
{
    std::shared_ptr<const DesignCode> code; ///< null on failure
    std::string reason;                     ///< one line; empty on success
};

/// The design code that a database names, whatever the current database is. A file is parsed again only when
/// its size or time changed.
MRL_HOST_API Loaded ofDatabase(int db);

/// The file of the design code that a database names; nothing when it names none or the file is not there. A relative
/// path counts from the folder of the project.
MRL_HOST_API std::optional<std::string> fileOfDatabase(int db);

} // namespace mrl::designcode
