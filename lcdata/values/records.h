#pragma once

/// The two record layouts that this system shares with the package, as they stand in the project database.
/// All words are little-endian. Includes nothing of the system, so that a host can use it too.

#include <cstddef>
#include <cstdint>

/// Words of a packed title: two UTF-16 units to a word, the earlier unit in the low half.
constexpr int LC_TITLE_WORDS = 17;

/// The undefined value: nothing is set here and the action's value holds. Bits 0xC7C34F80.
constexpr float LC_UNDEFINED = -99999.0f;

/// The kind of a record that defines an action.
constexpr int LC_KIND_ACTION = 1;

/// One action, 112 bytes, at KWH 14 with the action code as KWL.
struct tagCDB_LC_ACT
{
    std::int32_t kind;                   ///< LC_KIND_ACTION for an action definition
    char name[4];                        ///< first part of the name, blank-padded
    std::int32_t partition;              ///< bits 0-3 superposition, 4-7 category, 8 and up load group
    float gamu;                          ///< `Gamu`, unfavourable safety factor
    float gamf;                          ///< `Gamf`, favourable safety factor
    float psi0;                          ///< `Psi0`, combination factor
    float psi1;                          ///< `Psi1`, combination factor
    float psi2;                          ///< `Psi2`, combination factor
    float psi1s;                         ///< `Psi1s`, fourth combination factor
    float gama;                          ///< `Gama`, accidental safety factor; 0 means 1.0, 0.001 means 0.0
    std::int32_t suffix;                 ///< name suffix, four characters blank-padded, or 0
    std::uint32_t title[LC_TITLE_WORDS]; ///< packed text
};
static_assert(sizeof(tagCDB_LC_ACT) == 112);
static_assert(offsetof(tagCDB_LC_ACT, name) == 4);
static_assert(offsetof(tagCDB_LC_ACT, partition) == 8);
static_assert(offsetof(tagCDB_LC_ACT, gamu) == 12);
static_assert(offsetof(tagCDB_LC_ACT, gamf) == 16);
static_assert(offsetof(tagCDB_LC_ACT, psi0) == 20);
static_assert(offsetof(tagCDB_LC_ACT, psi1) == 24);
static_assert(offsetof(tagCDB_LC_ACT, psi2) == 28);
static_assert(offsetof(tagCDB_LC_ACT, psi1s) == 32);
static_assert(offsetof(tagCDB_LC_ACT, gama) == 36);
static_assert(offsetof(tagCDB_LC_ACT, suffix) == 40);
static_assert(offsetof(tagCDB_LC_ACT, title) == 44);

/// One load case, 188 bytes, at KWH 12 with the load-case number as KWL.
struct tagCDB_LC_CTRL
{
    std::int32_t kind;   ///< 0 and 1: this system's; any other value belongs to another module
    std::int32_t action; ///< 0 none, 70 imperfection, else an action code (or an old number)
    std::int32_t reserved1[5];
    float psi0;   ///< `Psi0`
    float psi1;   ///< `Psi1` and `Psi1s`, packed
    float psi2;   ///< `Psi2`
    float factor; ///< factor of the load case
    float dlx;    ///< `DLX`, component of automatic dead weight in X
    float dly;    ///< `DLY`, component in Y
    float dlz;    ///< `DLZ`, component in Z
    std::int32_t reserved2[6];
    float gamu; ///< `Gamu` and `Gama`, packed
    float gamf; ///< `Gamf`
    std::int32_t reserved3[8];
    std::uint32_t title[LC_TITLE_WORDS]; ///< packed text
};
static_assert(sizeof(tagCDB_LC_CTRL) == 188);
static_assert(offsetof(tagCDB_LC_CTRL, action) == 4);
static_assert(offsetof(tagCDB_LC_CTRL, reserved1) == 8);
static_assert(offsetof(tagCDB_LC_CTRL, psi0) == 28);
static_assert(offsetof(tagCDB_LC_CTRL, psi1) == 32);
static_assert(offsetof(tagCDB_LC_CTRL, psi2) == 36);
static_assert(offsetof(tagCDB_LC_CTRL, factor) == 40);
static_assert(offsetof(tagCDB_LC_CTRL, dlx) == 44);
static_assert(offsetof(tagCDB_LC_CTRL, dly) == 48);
static_assert(offsetof(tagCDB_LC_CTRL, dlz) == 52);
static_assert(offsetof(tagCDB_LC_CTRL, reserved2) == 56);
static_assert(offsetof(tagCDB_LC_CTRL, gamu) == 80);
static_assert(offsetof(tagCDB_LC_CTRL, gamf) == 84);
static_assert(offsetof(tagCDB_LC_CTRL, reserved3) == 88);
static_assert(offsetof(tagCDB_LC_CTRL, title) == 120);
