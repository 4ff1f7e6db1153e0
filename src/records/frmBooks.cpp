#include "records/frmBooks.h"
