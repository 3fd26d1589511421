#pragma once

/// The working copy of a project's actions and load cases that the open dialog works on.

#include <QObject>
#include <QString>

#include <deque>
#include <map>
#include <set>
#include <vector>

#include "lcdata/actions.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/records.h"
#include "model/used_numbers.h"

/// What an entry of the action tree is to the project.
enum LCM_ActionState : int {
    LCM_STATE_PLACEHOLDER = -1, ///< a parent that the design code doesn't list; it only carries its children
    LCM_STATE_FREE = 0,         ///< known to the design code, not part of the project
    LCM_STATE_ACTIVE = 1        ///< part of the project
};

/// A child of the action tree, such as Q_1 under Q.
struct LCM_SubAction
{
    tagCDB_LC_ACT record{};
    int state = LCM_STATE_FREE; ///< see LCM_ActionState; a child is never a placeholder
    int code = 0;               ///< the action code, the key of the entry in every search
};

/// A parent of the action tree, such as Q. Code that reads only a record, a state or a code takes parents and
/// children alike.
struct LCM_ActionEntry : LCM_SubAction
{
    bool userDefined = false;               ///< the design code doesn't know the action
    std::vector<LCM_SubAction*> subActions; ///< owned by the model, in the design code's order
};

/// A load case that this system owns.
struct LCM_LoadcaseEntry
{
    int number = 0; ///< the element of its key
    tagCDB_LC_CTRL record{};
};

/// An action as a row of the table gives it.
struct LCM_CodedAction
{
    int code;
    tagCDB_LC_ACT record;
};

/// The working model. Built once, from the database and its design code; the tabs share it through a count
/// and each calls release() when it goes.
///
/// There are two trees: `actions`, merged from the design code and the project, and one that stays as the
/// design code gave it. The entries of both live in the model and as long as it, also those taken out of
/// `actions`; the vectors hold plain pointers, so a change through a copy of a vector is a change of the
/// model. In every search the first match wins, a parent ahead of its children.
///
/// Construction makes `db` the current database and leaves it so. Nothing here reports a failure, apart from
/// the one warning of designCodeText; what can't be read is skipped.
class LCM_DataClass : public QObject
{
    Q_OBJECT
  public:
    explicit LCM_DataClass(int db);
    ~LCM_DataClass() override;

    /// One more tab shares the model.
    void addReference();
    /// One tab less; the last one destroys the model, which therefore stands on the heap.
    void release();
    int referenceCount() const { return refCount; }

    std::vector<LCM_ActionEntry*> actions;    ///< the live tree: parents; entries are made by newEntry
    std::vector<LCM_LoadcaseEntry> loadcases; ///< by number as loaded; replaced whole by the load-case tab

    /// Makes a parent without children and with the code of its record. The model owns it; it isn't in
    /// `actions`.
    LCM_ActionEntry* newEntry(const tagCDB_LC_ACT& record, int state, bool userDefined);

    /// The tree as the design code gave it.
    const std::vector<LCM_ActionEntry*>& designCodeTree() const { return designCodeActions; }

    /// Looks an action up. @param out [out] its record; as it was when it isn't found. @return 1 found, 0 not
    int findAction(int code, tagCDB_LC_ACT& out, bool inDesignCode) const;

    /// @param out [out] the records of all active entries of `actions`, parents ahead of their children, and
    ///                  nothing else. @return whether there are any
    bool activeActions(std::vector<tagCDB_LC_ACT>& out) const;

    /// The load-case numbers in the database, of all modules. Read once; read again as long as there are
    /// none.
    std::set<int> getUsedLoadcaseNumbers() { return usedLoadcaseNumbers.known(); }
    /// The same without the copy; good until the next call that changes the model.
    const std::set<int>& knownLoadCaseNumbers() { return usedLoadcaseNumbers.known(); }
    void removeUsedLoadcaseNumber(int number) { usedLoadcaseNumbers.remove(number); }
    /// The numbers that were removed since the last call.
    LCM_RemovedNumbers takeRemovedLoadcaseNumbers() { return usedLoadcaseNumbers.takeRemoved(); }
    /// Puts them back.
    void restoreUsedLoadcaseNumbers(const LCM_RemovedNumbers& removed)
    {
        usedLoadcaseNumbers.restore(removed);
    }

    /// The design code's marks; its factor fields also are the limits of the cell checks. Zero when the
    /// design code has none.
    const tagCDB_LC_ACT* availabilityRecord() const { return &availability; }

    /// Plus or minus 1, 2, 3 for X, Y, Z; 1 when the project doesn't say.
    int gravityDirection() const;

    /// Reads the design code's table into both trees; `actions` is emptied first.
    void loadActionsFromDesignCode();
    /// Merges the project's actions into `actions`. @return how many records met an action of the design code
    int loadActionsFromDatabase(int database);
    /// Makes the design code's default dead and live action active.
    void activateDefaultActions();
    /// Gives an action the design code's values back; its state stays. An action that the design code doesn't
    /// know stays as it is.
    void resetAction(int code);
    /// Takes an action out of the project: one of the design code becomes free with its default values, one
    /// of the user's own leaves `actions`.
    void removeAction(int code);
    /// removeAction for each of the codes, in step with their number.
    void removeActions(const std::set<int>& codes);

    /// The design code's label of a factor, "Gamu" to "Psi1s"; the key itself when it has none.
    QString designCodeText(const QString& key);
    /// Whether the tables have a column for a factor.
    bool hasFactor(LCM_FactorId id);
    /// 1 when the tables have a column for the factor, else 0.
    int hasGamu();
    int hasGamf();
    int hasGama();
    int hasPsi0() const;
    int hasPsi1() const;
    int hasPsi2() const;
    int hasPsi1s() const;
    /// How many factor columns there are.
    int optionalColumnCount();

    /// Puts a record into the entry with this code; state, code and userDefined of the entry stay. Of several
    /// entries with the code the one that is part of the project counts, else the first.
    /// @param mayCreate appends an active entry of the record when there is none
    void storeAction(int code, const tagCDB_LC_ACT& record, bool mayCreate);
    /// storeAction for each of the rows in turn, in step with their number.
    void storeActions(const std::vector<LCM_CodedAction>& rows, bool mayCreate);

    /// Replaces the project's actions by the active entries. A `Gama` of 0 becomes 0.001, in the model too.
    /// Keys of other modules and of the reserved letter stay.
    void writeActions(int database);
    /// Replaces the project's load cases of kind 0 and 1 by `loadcases`. Those of other modules stay.
    void writeLoadcases(int database);

    /// Whether the first key of the actions' group is one of the superposition module.
    bool hasSuperpositionKeys() const;
    /// Whether superposition data stands among the actions' group.
    bool hasSuperpositionContent() const;

  private:
    LCM_SubAction* newSubAction(const tagCDB_LC_ACT& record);
    void addTableEntry(std::vector<LCM_ActionEntry*>& tree, const tagCDB_LC_ACT& record);
    void loadLoadCases();

    std::vector<LCM_ActionEntry*> designCodeActions;
    LCM_UsedNumbers usedLoadcaseNumbers;
    std::map<QString, QString> textCache; ///< labels by key in upper case, also for keys without an entry
    int db;
    int refCount = 1;
    MRL_LC_Action_Info info;
    tagCDB_LC_ACT availability{};
    bool textWarningShown = false;

    // A deque keeps its elements in place.
    std::deque<LCM_ActionEntry> m_entryArena;
    std::deque<LCM_SubAction> m_subActionArena;
};
