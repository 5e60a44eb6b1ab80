#include <kt7/questions.h>

#include <kt7/hr_interface.h>

namespace kt7 {

float ask(const MonthTax& question, _HRObject& hr, DataObj& dataObj) {
  std::int16_t monthsLeft = question.monthsLeft;
  Currency allowances = question.allowances;
  Currency studySupport = question.studySupport;
  Currency exemption = question.exemption;
  Currency donation;  // never counts
  bool trimToTen = question.trimToTen;
  const Date signDate;  // accepted and ignored, as the two numbers after it
  return hr.CalcPTAX4(dataObj, question.pay, question.bonus, signDate, 0, 0, monthsLeft, allowances,
                      question.taxToDate, studySupport, donation, exemption, question.incomeToDate,
                      trimToTen, question.payDate, question.socialSecurity);
}

std::string ask(const EmployeeChoice& question, _HRObject& hr, DataObj& dataObj, AppObj& appObj,
                ClientObj& clientObj) {
  return hr.SelectEmployee4(dataObj, appObj, clientObj, question.many, question.activeOnly,
                            question.permittedOnly, question.withSlipsOnly, question.layout,
                            question.fromSaleHolder, question.typeColumn,
                            question.administratorLevel, question.ofType, question.andAlso);
}

std::int16_t write(const PositionStep& step, _HRObject& hr, DataObj& dataObj) {
  std::string department = step.department;
  return hr.UpdatePostionTR(dataObj, step.employee, step.from, step.positionCode, step.position,
                            step.branch, step.division, department, step.section, step.salary,
                            step.custom);
}

}  // namespace kt7
