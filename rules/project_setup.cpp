#include "rules/project_setup.h"

#include "host/mrl_dlib.h"
#include "lcdata/system_record.h"

LCM_DesignCodeIdentity lcm_active_design_code()
{
    return {mrl_dlib_cdb_get_ntcode(), mrl_dlib_cdb_get_idcode(), mrl_dlib_cdb_get_dcntry(),
            mrl_dlib_cdb_get_dcyear()};
}

void lcm_read_system(int db, LCM_LoadCaseSetup& setup)
{
    setup.gravity = lcm_gravity_direction(db);
    setup.systemClass = lcm_system_class(db);
}
