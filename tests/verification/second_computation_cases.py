"""Cases with simple numbers for the tests of the second computation."""

from second_computation.record import Case

CODE = "GB50429-07(A)"


def case_of(**changes):
    """A plain symmetric H 100 x 60 x 10 of 6061-T6, with attributes changed by name."""
    case = Case({"data": {"code": {
        "sect": {"nShape": 1, "dSize": [100.0, 10.0, 60.0, 10.0, 60.0, 10.0, 0.0, 0.0],
                 "dArea": 2000.0, "dIyy": 2.88e6, "dIzz": 7.2e5, "dIxx": 1e5, "dIw": 1e9,
                 "dPtY": [-30.0, 30.0, 30.0, -30.0], "dPtZ": [50.0, 50.0, -50.0, -50.0],
                 "bWelded": 0},
        "matl": {"strStandard": CODE, "strGrade": "6061-T6", "nElast": 70000, "dPoisson": 0.3,
                 "dF02Thin": 240.0, "dF02Thick": 240.0},
        "para": {"dCoef085": 1.0, "dKy": 1.0, "dKz": 1.0, "dLimitTension": 300.0,
                 "dLimitCompr": 200.0}},
        "dMembLength": 1000.0, "nMembType": 1}})
    for name, value in changes.items():
        assert hasattr(case, name), name
        setattr(case, name, value)
    return case


def formed(**changes):
    """The same with section parameters that are easy to divide by."""
    case = case_of(**changes)
    case.Ae, case.W1, case.W2, case.Wz = 1000.0, 1e5, 2e5, 1e4
    case.R1 = case.R2 = case.Rw = 0.5
    return case
