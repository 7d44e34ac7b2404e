"""The wording of a report, typed by hand from the rules of its blocks.

A line is a template: `{N}` stands for a printed number by the name N, `{verdict}` for what follows a
formula. Templates are kept apart from the product: nothing here is read from its sources.
"""

from dataclasses import dataclass

RULE = "=" * 100


@dataclass(frozen=True)
class Texts:
    """The texts beyond ASCII, as they are stored or as an engineer reads them."""

    dash: str
    seismic: str
    combinations: str
    strength: str
    shear: str
    stability: str
    slenderness: str
    direction: str
    in_plane: str
    out_of_plane: str
    shear_stress: tuple[str, str]
    compressed: str
    pulled: str


STORED = Texts(
    dash="\ucb6f",
    seismic="\u251aRE",
    combinations="\ubd50\u6f7c\u8389\ubd81",
    strength="\ud4fb\ub611\uf91a\u70ac",
    shear="\uc608\uc20f\ud4fb\ub611\uf91a\u70ac",
    stability="\u83c9\u8568\u6d38\ub54d\uf91a\u70ac",
    slenderness="\ub080\u7396\uad90\uf91a\u70ac",
    direction="\u8568",
    in_plane="\u7428\uc564\u9c57\u75f0\ud2f1\ucda9\ucf54\u6d38\ub54d:",
    out_of_plane="\u7428\uc564\u9c57\u75f0\ud2f1\ucda9\u68cd\u6d38\ub54d:",
    shear_stress=("\uc560\uaf2c\u9e9f\uae43\u6e9d", "\u83c9\ub818\u8568\ub3e8\uc20f\u58c7\uc81c"),
    compressed="\u83c9\u8568\u809d\u7b95\ubb50\uc22d\ub080\u7396\uad90\uff08kl/i\uf91a\u70ac\uff09",
    pulled="\u83c9\u8568\u809d\uc717\ubb50\uc22d\ub080\u7396\uad90\uff08kl/i\uf91a\u70ac\uff09",
)

READABLE = Texts(
    dash="–",
    seismic="γRE",
    combinations="荷载组合",
    strength="强度验算",
    shear="抗剪强度验算",
    stability="轴向稳定验算",
    slenderness="长细比验算",
    direction="向",
    in_plane="弯矩作用平面内稳定:",
    out_of_plane="弯矩作用平面外稳定:",
    shear_stress=("局部坐标系", "轴方向的剪应力"),
    compressed="轴向受压构件长细比（kl/i验算）",
    pulled="轴向受拉构件长细比（kl/i验算）",
)


@dataclass(frozen=True)
class Variant:
    """One way a block can look: its title and the lines below."""

    item: str  # the check, by its name among the results
    name: str
    title: str
    lines: tuple[str, ...]


LOAD = "(LCB={LCB}, POS={POS})"
AREA_AND_MODULI = "Aen = {Aen},  Weny={Weny},  Wenz={Wenz}"
PLASTICITY = "Gammay={Gammay},  Gammaz={Gammaz}"
SYMMETRIC = ("Phi_y={Phi_y}, Phi_z={Phi_z}", "Phi_by={Phi_by}, Phi_bz={Phi_bz}",
             "Beta_my={Beta_my}, Beta_mz={Beta_mz}", "Eta={Eta}, Eta1={Eta1}")


def variants(texts: Texts, seismic: bool) -> list[Variant]:
    """All variants of all blocks. @param seismic whether the model's seismic factors are switched on"""
    factor = f", {texts.seismic}={{RE}}" if seismic else ""
    all_forces = "N={N},  My={My},  Mz={Mz}" + factor
    force_and_moment = "N={N},  My={My}" + factor
    y, z = (f"{texts.stability}({axis}{texts.direction})" for axis in "YZ")

    def gap(*lines):
        return tuple("   " + line for line in lines)

    def shear(axis, other, inertia, number):
        stress = axis.lower().join(texts.shear_stress)
        return Variant(
            f"shear {axis.lower()}", "details", f"{texts.shear}({axis}{texts.direction})",
            gap("fv={fv}", "Iyy={Iyy},  Izz={Izz}", stress, LOAD,
                f"F{axis.lower()}={{F{axis.lower()}}}" + factor,
                f"R{number}=F{axis.lower()}*Q{other}b/(I{inertia}*fv)={{verdict}}"))

    return [
        Variant("strength", "axial", texts.strength,
                gap("Aen = {Aen}", "f = {f}", LOAD, "N={N}" + factor, "Rmax1=N/(f*Aen)={verdict}")),
        Variant("strength", "bending", texts.strength,
                gap("Weny={Weny},  Wenz={Wenz}", "f = {f}", PLASTICITY, LOAD,
                    ("<" if seismic else "") + "My={My}, Mz={Mz}" + factor,
                    "Rmax1=My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)={verdict}")),
        Variant("strength", "combined", texts.strength,
                gap(AREA_AND_MODULI, "f = {f}", PLASTICITY, LOAD, all_forces,
                    "Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)={verdict}")),
        shear("Y", "z", "zz", 1),
        shear("Z", "y", "yy", 2),
        Variant("stability", "axial", texts.stability,
                gap("Phi={Phi}", LOAD, "N={N}" + factor, "Rmax2=N/(Phi*f*A)={verdict}")),
        Variant("stability", "bending", texts.stability,
                gap("Phi_b={Phi_b}", LOAD, "My={My}" + factor, "Rmax2=My/(Phi_b*f*Wey)={verdict}")),
        Variant("stability", "symmetric", y,
                gap(*SYMMETRIC, "N_Ey'={N_Ey}", LOAD, all_forces,
                    "Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}"
                    "+Eta*Mz/(Phi_bz*f*Wez)={verdict}")),
        Variant("stability", "top compressed", y,
                gap(texts.in_plane, "Ae={Ae}", "Phi_y={Phi_y},  Beta_my={Beta_my}",
                    "Eta1={Eta1},  Eta2={Eta2}", "N_Ey'={N_Ey}", LOAD, force_and_moment,
                    "Rmax211=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*W1ey*[1-Eta1*(N/N_Ey')}={R211}",
                    "Rmax212=|N/(f*Ae)-Beta_my*My/{Gammay*f*W2ey*[1-Eta2*(N/N_Ey')}={R212}",
                    "Rmax21=MAX[Rmax211, Rmax212]={verdict}")),
        Variant("stability", "top pulled", y,
                gap(texts.in_plane, "Phi_y={Phi_y},  Beta_my={Beta_my}", "Eta1={Eta1}",
                    "N_Ey'={N_Ey}", LOAD, all_forces,
                    "Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}={verdict}")),
        Variant("combined stability", "symmetric", z,
                gap(*SYMMETRIC, "N_Ez'={N_Ez}", LOAD, all_forces,
                    "Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_by*f*Wey)"
                    "+Beta_mz*Mz/{Gammaz*f*Wez*[1-Eta1*(N/N_Ez')]}={verdict}")),
        Variant("combined stability", "top compressed", z,
                gap(texts.out_of_plane, "Phi_z={Phi_z},  Phi_b={Phi_b}", "Eta={Eta}", LOAD,
                    force_and_moment, "Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*W1ey)={verdict}")),
        Variant("combined stability", "top pulled", z,
                gap(texts.out_of_plane, "Phi_z={Phi_z},  Phi_b={Phi_b}", "Eta={Eta}", LOAD,
                    all_forces, "Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*Wey)={verdict}")),
        Variant("slenderness", "compressed", texts.slenderness,
                gap(texts.compressed, "kl/i={slenderness}")),
        Variant("slenderness", "pulled", texts.slenderness,
                gap(texts.pulled, "kl/i={slenderness}")),
        Variant("slenderness", "without axial force", texts.slenderness, ()),
    ]


# Labels of the dimension line by the shape's name.
DIMENSIONS = {
    "C": ("H", "tw", "B1", "tf1", "B2", "tf2"),
    "H": ("H", "tw", "B1", "tf1", "B2", "tf2"),
    "T": ("H", "tw", "B", "tf"),
    "B": ("H", "tw", "B", "tf1", "C", "tf2"),
    "P": ("D", "tw"),
    "2C": ("H", "tw", "B", "tf", "C"),
    "SR": ("D",),
}
