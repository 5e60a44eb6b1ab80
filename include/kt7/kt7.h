#pragma once

/// The library's own public face: operations, profiles, values and the contracts of a host.
#include <kt7/contract/data_access.h>
#include <kt7/contract/data_obj.h>
#include <kt7/contract/data_tool.h>
#include <kt7/contract/platform.h>
#include <kt7/contract/setting_store.h>
#include <kt7/contract/utility_object.h>
#include <kt7/currency.h>
#include <kt7/date.h>
#include <kt7/employee_interface.h>
#include <kt7/employee_object.h>
#include <kt7/enumerations.h>
#include <kt7/error.h>
#include <kt7/hr_interface.h>
#include <kt7/hr_object.h>
#include <kt7/operations.h>
#include <kt7/questions.h>
#include <kt7/value.h>
#include <kt7/version.h>
