#include "payroll/slips/salary_history.h"

#include "payroll/ports/run_services.h"

namespace kt7::payroll {

HistoryStep historyStep(const Employee& employee, const std::map<std::string, double>& latest) {
  const auto known = latest.find(employee.code);
  if (known == latest.end()) return HistoryStep::Begin;
  const bool same = employee.salary && employee.salary->toDouble() == known->second;
  return same ? HistoryStep::None : HistoryStep::Changed;
}

void writeHistory(HistoryStep step, const Employee& employee, Date from, RunServices& services) {
  if (step == HistoryStep::None) return;
  if (step == HistoryStep::Begin) {
    services.hr.BackupBlankPostionTR(services.dataObj, employee.code);
    return;
  }
  std::string department;
  services.hr.UpdatePostionTR(services.dataObj, employee.code, from, "", "", "", "", department, "",
                              employee.salary->toDouble(), employee.custom.toDouble());
}

}  // namespace kt7::payroll
