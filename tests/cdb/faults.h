#pragma once

/// Makes the operating system fail where it is told to: a layer between SQLite and the file system that lets
/// everything through but the n-th call.
namespace faults {

/// What a failing change reports: a full disk, or a broken one.
enum class Kind { DiskFull, Broken };

/// Which calls count. Changes: writes, truncations and syncs. All: also opening, reading and deleting.
enum class Calls { Changes, All };

/// Once: the next change succeeds again. ForEver: all that follow fail too.
enum class Lasting { Once, ForEver };

/// Puts the layer in front of all databases that are opened from now on; idempotent.
void install();

/// The n-th call from now on fails; 1 is the next.
void failAt(int n, Kind kind, Lasting lasting, Calls calls = Calls::Changes);

/// Nothing fails any more. @return how many calls were counted since failAt
int disarm();

} // namespace faults
