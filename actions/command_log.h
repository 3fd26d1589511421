#pragma once

/// The commands of the tabs that change rows.
enum class LCM_Command {
    Type,
    Paste,
    FillDown,
    NewAction,
    AddAllActions,
    DeleteActions,
    ReinitialiseActions,
    NewLoadCase,
    CopyLoadCases,
    DeleteLoadCases,
    CheckAgain,
    Other ///< a change of cells that no command of a tab made
};

/// Who is told where the commands of the tabs begin and end.
class LCM_CommandLog
{
  public:
    virtual ~LCM_CommandLog() = default;
    virtual void begin(LCM_Command command) = 0;
    virtual void end() = 0;
};

/// One command, from its making to its end.
class LCM_CommandScope
{
  public:
    /// @param log null for nobody to be told
    LCM_CommandScope(LCM_CommandLog* log, LCM_Command command) : m_log(log)
    {
        if (m_log) {
            m_log->begin(command);
        }
    }
    ~LCM_CommandScope()
    {
        if (m_log) {
            m_log->end();
        }
    }
    LCM_CommandScope(const LCM_CommandScope&) = delete;
    LCM_CommandScope& operator=(const LCM_CommandScope&) = delete;

  private:
    LCM_CommandLog* m_log;
};
