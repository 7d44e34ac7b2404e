"""One check point as plain attributes: the record of a JSON line with the records' defaults."""

import collections

SHAPES = {0: "C", 1: "H", 2: "T", 3: "B", 4: "P", 5: "2C", 6: "SR"}
COLUMN, BEAM, BRACE, TRUSS = 1, 2, 3, 5


class Case:
    """The inputs of one evaluation, its branch trail and its report values."""

    def __init__(self, point, number=float):
        data = point.get("data", {})
        code = data.get("code", {})
        self.trail = []
        self.report = [0.0] * 23
        self.check_flag = data.get("nCheckFlag", [1] * 8)
        self.length = number(data.get("dMembLength", 0.0))
        self.member_type = data.get("nMembType", 0)
        self.end_condition = data.get("nEndCond", [[0, 0], [0, 0]])
        self._section(code.get("sect", {}), number)
        self._material(code.get("matl", {}), number)
        self._parameters(code.get("para", {}), number)
        self._forces(point.get("force", {}), number)

    def _section(self, sect, number):
        def values(name, count):
            return [number(x) for x in sect.get(name, [0.0] * count)]

        self.shape_code = sect.get("nShape", 0)
        self.shape = SHAPES.get(self.shape_code, "unknown")
        (self.H, self.tw, self.B1, self.tf1,
         self.B2, self.tf2, self.r1, self.r2) = values("dSize", 8)
        self.A = number(sect.get("dArea", 0.0))
        self.Iw = number(sect.get("dIw", 0.0))
        self.It = number(sect.get("dIxx", 0.0))
        self.Iyy = number(sect.get("dIyy", 0.0))
        self.Izz = number(sect.get("dIzz", 0.0))
        self.Qyb = number(sect.get("dQyb", 0.0))
        self.Qzb = number(sect.get("dQzb", 0.0))
        self.e0 = number(sect.get("dShearCtr", 0.0))
        self.y = values("dPtY", 4)
        self.z = values("dPtZ", 4)
        self.z1 = self.z[0]
        self.z3 = self.z[2]
        self.welded = sect.get("bWelded", 1)

    def _material(self, matl, number):
        self.standard = matl.get("strStandard", "")
        self.grade = matl.get("strGrade", "")
        self.E = number(matl.get("nElast", 0))
        self.nu = number(matl.get("dPoisson", 0.0))
        self.fy_thin = number(matl.get("dF02Thin", 0.0))
        self.fy_thick = number(matl.get("dF02Thick", 0.0))

    def _parameters(self, para, number):
        self.gamma0 = number(para.get("dGamma0", 1.0))
        self.seismic_switch = para.get("bSeismicGammaRE", 0)
        self.gamma_re_strength = number(para.get("dGammaREStrength", 0.75))
        self.gamma_re_stability = number(para.get("dGammaREStability", 0.8))
        self.net_area_ratio = number(para.get("dCoef085", 0.85))
        self.rib = para.get("bRib", 0)
        self.rib_ratio = number(para.get("dRibRatio", 1.2))
        self.b_haz = number(para.get("dHazWidth", 30.0))
        self.user_phi = para.get("bUserPhi", 0)
        self.user_phi_b, self.user_phi_bz = [number(x) for x in para.get("dUserPhi", [1.0, 1.0])]
        self.limit_tension = number(para.get("dLimitTension", 0.0))
        self.limit_compression = number(para.get("dLimitCompr", 0.0))
        self.user_limit = para.get("bUserLimit", 0)
        self.ky = number(para.get("dKy", 0.0))
        self.kz = number(para.get("dKz", 0.0))
        self.mid_support = para.get("bMidSupport", 0)
        self.moment_mode = para.get("bUserBetaM", 0)
        self.moment_auto = para.get("nBetaMOpt", [1, 1])
        self.moment_user = [number(x) for x in para.get("dBetaM", [1.0, 1.0])]
        self.moment_loading = para.get("nBetaMOpt2", [0, 0])
        self.sway = para.get("bSway", [0, 0])

    def _forces(self, force, number):
        six = [number(x) for x in force.get("dForce", [0.0] * 6)]
        self.N, self.Fy, self.Fz, _, self.My, self.Mz = six
        self.end_section = force.get("bEndSect", 0)
        self.seismic_combination = force.get("nSesiType", 0)
        end = force.get("end", {})
        self.end_moments = {
            "y": (number(end.get("dMyI", 0.0)), number(end.get("dMyJ", 0.0))),
            "z": (number(end.get("dMzI", 0.0)), number(end.get("dMzJ", 0.0))),
        }

    def hit(self, branch):
        """Records that a named branch of the rules was taken."""
        self.trail.append(branch)

    def hits(self):
        return collections.Counter(self.trail)
