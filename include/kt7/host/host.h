#pragma once

/// The reference host: a platform and a data object over the built-in database drivers.
#include <kt7/host/application.h>
#include <kt7/host/company.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/drivers.h>
#include <kt7/host/platform.h>
#include <kt7/roles/picker.h>
