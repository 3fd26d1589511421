#pragma once

class LCM_DataClass;
class TableLoadCases;

/// Gives the load-case table its columns: seven fixed ones, then one for each factor that the design code
/// knows.
/// @param table as many columns as LCM_DataClass::optionalColumnCount says and LC_FIXED_COLUMNS more
/// @param gravity signed axis of gravity; names the dead weight and limits the component along it
void lcm_create_load_case_columns(TableLoadCases* table, LCM_DataClass* model, int gravity);

constexpr int LC_FIXED_COLUMNS = 7;
