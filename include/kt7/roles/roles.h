#pragma once

/// The roles of a host over its own data sources; no client library is needed.
#include <kt7/roles/data_source.h>
#include <kt7/roles/picker.h>
#include <kt7/roles/source_host.h>
#include <kt7/roles/standard_data_obj.h>
#include <kt7/roles/standard_platform.h>
#include <kt7/roles/utility_object.h>
