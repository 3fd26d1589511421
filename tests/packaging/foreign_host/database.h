#pragma once

/// A project database in memory.

/// Opens an empty database. @return its index
int openDatabase();
