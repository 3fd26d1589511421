#pragma once

class LCM_DataClass;
class MRL_H_TableWidget;

/// Gives the actions table its columns: four fixed ones, then one for each factor that the design code knows.
/// Their texts are in the user's language, the captions of the factors in the words of the design code.
/// @param table as many columns as LCM_DataClass::optionalColumnCount says and four more
void lcm_create_action_columns(MRL_H_TableWidget* table, LCM_DataClass* model);
