#pragma once

#include <list>
#include <set>
#include <utility>
#include <vector>

/// Load-case numbers that became free.
struct LCM_RemovedNumbers
{
    std::vector<int> numbers;
    bool wereLast = false; ///< none was left, so that they may have been read again since
};

/// The load-case numbers in a database, of all modules. They are read once, and again as long as there are
/// none. A load case that is made while the dialog is open isn't among them.
class LCM_UsedNumbers
{
  public:
    explicit LCM_UsedNumbers(int db) : m_db(db) {}

    void read();
    /// How many numbers stood in the database when it was read last.
    std::size_t countRead() const { return m_read.size(); }
    const std::set<int>& known();
    void remove(int number);
    /// What was removed since the last call.
    LCM_RemovedNumbers takeRemoved() { return std::exchange(m_removed, {}); }
    /// Puts numbers back that were removed.
    void restore(const LCM_RemovedNumbers& removed);

  private:
    std::set<int>& numbers();

    int m_db;
    std::list<int> m_read; ///< as read; becomes the set below when it is first asked for
    std::set<int> m_numbers;
    LCM_RemovedNumbers m_removed;
};
