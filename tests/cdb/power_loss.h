#pragma once

/// Shows what a power loss could leave of files: a layer between SQLite and the file system that notes every write,
/// truncation, deletion and sync, and builds from a prefix of those notes the states in which a disk may be found.
///
/// What was not synced may be there or not, each sector of 512 bytes for itself and in any order. A file's creation
/// and deletion count once its folder was synced, or may count before.

#include <random>
#include <string>

namespace power_loss {

/// Puts the layer in front of all databases that are opened from now on; idempotent.
void install();

/// Forgets the notes, and takes what is on the disk now for synced.
/// @param folder only files in it are looked at
void start(const std::string& folder);
/// Ends the noting. @return how many notes there are
std::size_t stop();

/// Marks that something was reported as saved. @return the notes so far
std::size_t now();

/// Writes to a folder what a power loss after the first `notes` notes may have left.
void leave(const std::string& folder, std::size_t notes, std::mt19937& random);

} // namespace power_loss
