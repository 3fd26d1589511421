#pragma once

#include <list>
#include <set>

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
    void remove(int number) { numbers().erase(number); }

  private:
    std::set<int>& numbers();

    int m_db;
    std::list<int> m_read; ///< as read; becomes the set below when it is first asked for
    std::set<int> m_numbers;
};
