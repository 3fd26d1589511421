#pragma once

/// The project-database library: keys and records of the project database, the CDB.
///
/// A database is addressed by a small integer, its index. A key is a pair of signed 32-bit integers, KWH (the
/// group) and KWL (the element); keys are ordered by KWH, then by KWL, both as signed numbers. Under one key
/// stands a sequence of one or more records of bytes.
///
/// No function throws, and none shows a message. Every function may be called with an index that is not open:
/// a read finds nothing then, and a write is refused.

#include <list>

#include "host/mrl_export.h"

/// Results of get and put; callers compare them as integers. Nothing above 3 comes back.
enum cd_error_t : int {
    CD_OK = 0,  ///< the whole record
    CD_CUT = 1, ///< get: the record is longer than the buffer and was cut to it; usable
    CD_END = 2, ///< get: the key exists, but has no further record at this position
    CD_NONE = 3 ///< no such key, or the database could not be read or written; the host keeps the reason
};

/// The index of the current database. @param what always -1. @return the index, -1 when none is current.
MRL_HOST_API int mrl_cdb_status(int what);

/// Makes a database current; the design code of the current database is the active one.
/// @param db an open database; a closed or unknown index changes nothing. @param zero always 0.
MRL_HOST_API int mrl_cdb_use(int db, int zero);

/// Steps to the next key strictly beyond the given one, over all groups.
/// @param kwh, kwl [in, out] the key. Beyond the last key `*kwh` becomes an extreme value that no walk
///                 takes for its own group: the largest int going up, the smallest going down.
/// @param direction +1 or -1
/// @return 0, or 1 beyond the last key (also when the database could not be read)
/// @note Fetches ahead in blocks and holds neither a statement nor a snapshot between two calls. Deleting the
///       current key does not disturb the next step.
MRL_HOST_API int mrl_cdb_kenq_ex(int db, int* kwh, int* kwl, int direction);

/// Reads one record of a key.
/// @param buffer [out] results 0 and 1: the bytes, the rest of the buffer zero; results 2 and 3: as it was
/// @param length [in, out] the buffer's size; with results 0 and 1 the number of bytes delivered
/// @param position 0 the key's first record; a positive number the record after the one read last on this
///                 key, so that a reader that passes 1 each time and one that counts 1, 2, 3 both walk it
/// @return see cd_error_t
MRL_HOST_API cd_error_t mrl_cdb_get(int db, int kwh, int kwl, void* buffer, int* length, int position);

/// Writes a record. Unless a transaction is open, the record is on the disk when the call returns, safe from a crash
/// and from a power loss; that takes several syncs, so writes in bulk belong into a transaction. Writing what stands
/// there already costs a comparison.
/// @param length the record's length in bytes; 0 removes the key (3 when there is none)
/// @param position 0: afterwards the key holds just this record. -1: overwrites the record that was read last
///                 on this key (the first one when none was), also after mrl_cdb_free_ex; 3 when there is
///                 none.
MRL_HOST_API cd_error_t mrl_cdb_put(int db, int kwh, int kwl, const void* data, const int* length,
                                    int position);

/// Deletes a key with all its records. @return 0, or 3 when there is no such key or it cannot be deleted.
MRL_HOST_API cd_error_t mrl_cdb_del(int db, int kwh, int kwl);

/// Ends the access to a key that a get or put opened. Harmless for a key that is not open.
MRL_HOST_API int mrl_cdb_free_ex(int db, int kwh, int kwl);

namespace mrl::dbo {

/// Lists the numbers (KWL) that the database knows under a group, those of other modules too.
/// @param from, to handed on as callers pass them (0 and 999); no range filter: numbers above 999 come as
/// well
/// @param out [out] receives the numbers in ascending order, behind what it holds
/// @param reserved always null
MRL_HOST_API int getKwls(int db, int kwh, int from, int to, std::list<int>* out, int* reserved);

} // namespace mrl::dbo
