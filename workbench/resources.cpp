#include "workbench/resources.h"

#include <QDir>

// Outside of any namespace, as the macro asks for.
static void initialise() { Q_INIT_RESOURCE(workbench); }

void mrl::workbench::initResources() { initialise(); }
