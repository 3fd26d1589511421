#include <cstdio>
#include <string>
#include <variant>
#include <vector>

#include "bench/figure.h"
#include "bench/load_cases.h"
#include "hostlib/data/designcode/designcode.h"

namespace {

using mrl::designcode::DesignCode;

std::size_t bytesOf(const DesignCode& code)
{
    std::size_t bytes = 0;
    for (const auto& file : code.files) {
        bytes += file.text.size();
    }
    return bytes;
}

/// The shipped design code whose chain of files is the largest, read n times with all that it inherits. Raw: the same
/// files read into a string each, piece by piece with fread.
class LargestChain
{
  public:
    explicit LargestChain(int n) : m_count(n)
    {
        std::size_t largest = 0;
        for (const auto& found : mrl::designcode::list()) {
            auto read = mrl::designcode::read(found.file);
            const auto& code = std::get<DesignCode>(read);
            if (bytesOf(code) > largest) {
                largest = bytesOf(code);
                m_file = found.file;
                m_chain.clear();
                for (const auto& file : code.files) {
                    m_chain.push_back(file.file);
                }
            }
        }
        bench::require(m_chain.size() > 1, "a code with a base");
    }

    void ours() const
    {
        for (int i = 0; i < m_count; ++i) {
            const auto read = mrl::designcode::read(m_file);
            bench::require(std::holds_alternative<DesignCode>(read), "read");
            bench::keep(read);
        }
    }
    void raw() const
    {
        for (int i = 0; i < m_count; ++i) {
            for (const std::string& file : m_chain) {
                FILE* in = std::fopen(file.c_str(), "rb");
                bench::require(in != nullptr, "open");
                std::string text;
                char piece[1 << 14];
                for (std::size_t length = sizeof piece; length == sizeof piece;) {
                    length = std::fread(piece, 1, sizeof piece, in);
                    text.append(piece, length);
                }
                std::fclose(in);
                bench::keep(text);
            }
        }
    }

  private:
    int m_count;
    std::string m_file;
    std::vector<std::string> m_chain;
};
const bench::Timed<LargestChain> largestChain("designcode.largest_chain", 30.0, {20});

} // namespace
