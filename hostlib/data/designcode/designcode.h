#pragma once

/// Design codes in files: reading one, finding the shipped ones, and the design code of a database.
/// The contract of the file itself is docs/design-code-file.md.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/mrl_export.h"
#include "hostlib/data/designcode/annotation.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/records.h"
#include "lcdata/values/situation.h"

namespace mrl::designcode {

/// One file of a code and its bases, as its text stood when it was read.
struct FileText
{
    std::string file; ///< the path by which messages name it
    std::string text;
};

/// Where a value comes from: what vouches for it, and where it stands.
struct Origin
{
    Source source;
    std::string file;
    int line = 0;   ///< 1-based; 0: no file states it
    int column = 0; ///< 1-based

    bool isStated() const { return line > 0; }
};

/// One default action of a design code.
struct DefaultAction
{
    tagCDB_LC_ACT record{}; ///< kind 1, every field as the file states it
    int code = 0;           ///< the action code: first four bytes of the joined name, blank-padded
    std::string name;       ///< the joined name, for example "G" or "Q_A"
    std::map<std::string, std::string> titles; ///< by language, such as "de"; the record has the English one
    std::vector<int> oldNumbers;               ///< old action numbers that stand for this action, 1 to 999
    LCM_PerFactor<Origin> origins;             ///< of the factors
    std::string file; ///< that of its section, the last one of the chain that states something
    int line = 0;     ///< line of that section
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
    FactorNotStated,
    GamaNotStated,
    GammaAbove3,
    PsiAbove1,
    XsiOutOfRange,
    KfiOutOfRange,
    GamfAbove1OfVariableAction,
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
    std::string file; ///< of the chain, as it was read
    int line = 0;     ///< 1-based; 0 when it concerns the file as a whole
    int column = 0;   ///< 1-based; 0 when it concerns the line as a whole
    std::string text;
    std::string cure;
};

/// What one design-code file says, with all that it takes over from its bases.
struct DesignCode
{
    std::string name;                       ///< the file's name without folder and ending
    std::string file;                       ///< path as it was opened
    std::vector<FileText> files;            ///< the file itself, its base, the base of that
    std::string flat;                       ///< the text of a file without a base that says the same
    std::string label;                      ///< one line for people, UTF-8
    int ntcode = 0;                         ///< national code
    int idcode = 0;                         ///< code number
    int country = 0;                        ///< country
    int year = 0;                           ///< year
    tagCDB_LC_ACT availability{};           ///< marks and limits in the factor fields, partition word 0
    std::vector<DefaultAction> actions;     ///< in the order of the file
    bool hasActionsSection = false;         ///< the section "ACTIONS" stands in the file, even if empty
    std::vector<Label> texts;               ///< entries of the section "ACTIONS"
    std::optional<float> kfi;               ///< section "COMBINATIONS", entry KFI
    std::optional<float> xsi;               ///< section "COMBINATIONS", entry XSI
    std::map<std::string, float> constants; ///< what the terms of situations may name; 1 for an entry "none"
    std::map<std::string, Origin> constantOrigins;
    std::vector<LCM_Situation> situations; ///< how the actions are combined, in the order of the file
    std::vector<Warning> readingWarnings; ///< what was told while the file was read; warnings() has them, too
};

/// What is wrong with a file.
struct Error
{
    std::string file;
    int line = 0;   ///< 1-based; 0 when it concerns the file as a whole
    int column = 0; ///< 1-based, in characters; 0 when it concerns the line as a whole
    std::string reason;
    std::string cure;

    /// "FILE:LINE:COLUMN: REASON: CURE", without the parts that there are none of.
    MRL_HOST_API std::string text() const;
};

/// All that is wrong, so that nobody has to look one error after the other up.
using Errors = std::vector<Error>;
using ReadResult = std::variant<DesignCode, Errors>;

/// Gives the file that another one names as its base, or why there is none.
using BaseOf =
    std::function<std::variant<FileText, std::string>(const std::string& name, const FileText& from)>;

/// Reads a design-code file with its bases. Never throws for what the files hold.
MRL_HOST_API ReadResult read(const std::string& file);

/// Reads a design code from text. @param file the name that errors carry; bases are looked for beside it first
MRL_HOST_API ReadResult parse(std::string_view content, const std::string& file);

/// Reads a design code whose bases come from elsewhere.
MRL_HOST_API ReadResult parse(FileText code, const BaseOf& baseOf);

/// What would trap the user of a design code, as far as its files alone tell it, by line; empty for every shipped
/// one. The factors of the default actions are judged above this library.
MRL_HOST_API std::vector<Warning> warnings(const DesignCode& code);

/// A design-code file that was found on the search path.
struct Found
{
    std::string name;                       ///< what a project stores to name it
    std::string file;                       ///< its path
    std::vector<std::string> shadowed = {}; ///< files of the same name further down the path
};

/// The folder for design codes of one's own, whether it exists or not: mrl/designcodes in the user's data folder.
MRL_HOST_API std::string userFolder();

/// The folders that are searched, the first match wins: each of the colon list MRL_DESIGNCODE_PATH, userFolder(),
/// then share/mrl/designcodes beside the folder of this library. A build tree has that folder as well.
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
