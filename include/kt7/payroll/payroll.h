#pragma once

/// The pay run as a call: a month paid from a program, with a listener.
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/month.h>
#include <kt7/payroll/pay_month.h>
#include <kt7/payroll/register_amounts.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include <kt7/payroll/slip.h>
