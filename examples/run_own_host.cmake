# Holds what own_host answers against the command's answers on the sample company, of which a month
# was paid. Both post the same slip, one after the other.
include(${CMAKE_CURRENT_LIST_DIR}/installed.cmake)

function(answer variable operation parameters)
  run(${KT7HR} call ${operation} ${parameters})
  string(REGEX MATCH "\"value\":([-0-9.]+)" value "${output}")
  set(${variable} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()

run(${KT7HR} payroll --month 2026-01)
set(slip 20260131-0000002)
answer(rate GETDAYRATE "{\"EmployeeCode\":\"E0002\"}")
answer(tax CalcPTAX4 "{\"iTaxBase\":42000,\"iBonus\":0,\"SignDate\":\"2020-01-01\",\"YearCalc\":0,\
\"Condition\":0,\"iMoreMonth\":12,\"Reduce\":60000,\"LastPTAX\":0,\"CutStudySup\":0,\"Donation\":0,\
\"CutWaive\":0,\"LastSalary\":42000,\"FixtoTen\":false,\"PayDate\":\"2026-01-31\",\"LastSSO\":0}")
answer(posted SumAmass2 "{\"TEmpCode\":\"E0002\",\"CheckGroup\":1,\"TAmyCode\":\"\",\
\"TEPSNo\":\"${slip}\",\"Status\":1}")
run(${program} ${WORK}/company.db E0002 ${slip})
expect("day rate ${rate}\ntax ${tax}\nposted ${posted}\n")
