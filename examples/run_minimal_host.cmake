# Asks minimal_host about an employee of the sample company.
include(${CMAKE_CURRENT_LIST_DIR}/installed.cmake)

# E0002 earns 42,000 a month: 42,000 / 30 / 8 an hour. A year of it less the expenses (100,000), the
# own allowance (60,000) and 11 months of social security (875 each) leaves 334,375; its tax is
# 7,500 + 10 % of 34,375, a twelfth of it a month.
run(${program} ${WORK}/company.db E0002 42000)
expect("hour rate 175.00\ntax 911.46\n")
