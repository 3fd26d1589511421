#pragma once

/// Where factors and words stand in the records, written down by hand from the layout of the records. Every
/// reader and writer is held against these lists, and none of them may be made from the product's own.

#include <cstring>
#include <string>
#include <vector>

#include "lcdata/values/records.h"

namespace mrl::test {

/// How a load case holds a factor.
enum class Half { Whole, Main, Minor };

struct FactorPlace
{
    const char* key;
    std::size_t actionByte;   ///< of the float in the record of an action
    std::size_t loadCaseByte; ///< of the float in the record of a load case
    Half half;
    int column; ///< in both tables
};

inline const std::vector<FactorPlace> FACTOR_PLACES{
    {"Gamu", 12, 80, Half::Main, 104},   {"Gamf", 16, 84, Half::Whole, 105},
    {"Gama", 36, 80, Half::Minor, 106},  {"Psi0", 20, 28, Half::Whole, 107},
    {"Psi1", 24, 32, Half::Main, 108},   {"Psi2", 28, 36, Half::Whole, 109},
    {"Psi1s", 32, 32, Half::Minor, 110},
};

template <class Record>
float floatAt(const Record& record, std::size_t byte)
{
    float value = 0.0f;
    std::memcpy(&value, reinterpret_cast<const char*>(&record) + byte, sizeof value);
    return value;
}

template <class Record>
void putFloatAt(Record& record, std::size_t byte, float value)
{
    std::memcpy(reinterpret_cast<char*>(&record) + byte, &value, sizeof value);
}

/// A word and the bits of the partition word that it stands for.
struct WordBits
{
    const char* word;
    int bits;
};

/// Bits 4 to 7 the category, bits 8 and up the load group.
inline const std::vector<WordBits> PARTITION_BITS{
    {"G", 0x010},   {"P", 0x020},   {"Q", 0x030},   {"A", 0x040},   {"E", 0x050},
    {"Q_1", 0x130}, {"Q_2", 0x230}, {"Q_3", 0x330}, {"Q_4", 0x430}, {"Q_5", 0x530},
};

/// Bits 0 to 3.
inline const std::vector<WordBits> SUPERPOSITION_BITS{
    {"PERM", 0}, {"COND", 1}, {"EXCL", 2}, {"UNSI", 3}, {"USEX", 4}, {"ALEX", 5}, {"EXEX", 6}, {"PERC", 8},
};

/// Each partition once and each superposition at least once, joined.
struct PartitionWord
{
    std::string partition;
    std::string superposition;
    int word;
};

inline std::vector<PartitionWord> partitionWords()
{
    std::vector<PartitionWord> words;
    for (std::size_t i = 0; i < PARTITION_BITS.size(); ++i) {
        const WordBits& partition = PARTITION_BITS[i];
        const WordBits& superposition = SUPERPOSITION_BITS[i % SUPERPOSITION_BITS.size()];
        words.push_back({partition.word, superposition.word, partition.bits + superposition.bits});
    }
    return words;
}

} // namespace mrl::test
