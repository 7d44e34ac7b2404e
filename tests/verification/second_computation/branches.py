"""Every named branch of the rules, so that one that no point reaches can be told.

A name with {a,b} stands for one name per alternative.
"""

import itertools
import re

HARDENING = "{weak,strong}"
CLASS = "{t6,other}"
WELD = "{plain,welded}"
SWITCH = "{on,off}"

PATTERNS = (
    # switches, force states and factors
    f"switch.{{strength,shear_y,shear_z,stability,combined_stability}}.{SWITCH}",
    "switch.slenderness.{both,y,z,neither}",
    "force_factor.{strength,stability}.{not_seismic,switch_off,seismic}",
    "strength.{none,tension,compression,bending,tension_bending,compression_bending}",
    "stability.none.{none,tension,tension_bending}",
    "combined_stability.none.{none,tension,compression,bending,tension_bending}",
    # material
    "material.strength.{6061-T4,6061-T6,6063-T5,6063-T6}.any",
    "material.strength.{5083-O/F,5083-H112,3003-H24,3004-H34,3004-H36}.any",
    "material.strength.{6063A-T5,6063A-T6}.{thin,thick}",
    "material.strength.{other_standard,unknown_grade}",
    "material.thickness.{second_dimension,diameter}",
    "material.haz.{0.2,0.5,0.8,1.0,other_standard}",
    "material.proof.{thin,thick}",
    # section parameters
    "section.{formed,fail.stress_point,fail.zero_property}",
    "section.unsymmetric.{C,T,H.thickness,H.width}",
    "section.symmetric.{H,other_shape}",
    "section.gross.{separate_moduli,common_modulus}",
    "section.method.none.{shape,ratio}",
    "section.method.gross.{C,H,T,B,2C}.plain",
    f"section.method.gross.{{P,SR}}.{WELD}",
    "section.method.haz.{C,H,T,B,2C}",
    f"section.method.effective.{{C,H,B}}.{WELD}",
    "haz.clear.{C,H}.{top,bottom,web}.{open,clamped}",
    "haz.clear.{B,2C,T}.{flange,web}.{open,clamped}",
    # plates
    "local.psi.{flange,web.zero_input}",
    "local.psi.web.{bottom_over_top,top_over_bottom}",
    "local.psi.web.{bottom_over_top,top_over_bottom}.zero_denominator",
    "local.k.outstand.{positive,nonpositive}",
    "local.k.internal.{below_minus_one,negative,otherwise}",
    "local.kappa.{one,internal,outstand}",
    "local.eta.{one,rib}",
    f"local.limit.{{C.flange,H.flange,H.web,B.flange,B.web,P.wall}}.{CLASS}.{WELD}",
    "local.ratio.{C,H,B,P,none,no_limit}",
    "local.governing.axial.web.{H,B}",
    "local.governing.axial.both_flanges.{C,H,B}.{bottom_worse,top_worse_or_equal}",
    "local.governing.axial.{bottom_only,none}.{C,H,B}",
    "local.governing.bending.{top,bottom}.{C,H,B}",
    f"rho.coefficients.{CLASS}.{{rib,no_rib}}.{WELD}",
    "rho.cap.{none,governs,above}",
    "rho.{zero,between,one}",
    f"effective.{{C,H,B}}.{WELD}.{{axial,top,bottom}}",
    # strength and shear
    "strength.axial.{formed,zero_area}",
    "strength.bending.{symmetric,unsymmetric.top,unsymmetric.bottom}",
    "strength.combined.{symmetric,unsymmetric,zero_area}",
    "strength.bottom_modulus.formed",
    f"plasticity.{{C,H,T,B,P,2C,SR}}.{HARDENING}",
    "shear.{y,z}.{pure_bending,no_bending,beam,not_a_beam}",
    # slenderness
    "slenderness.{checked,off}",
    "slenderness.z.{flexural,flexural_torsional}",
    "slenderness.torsional_length.{member,far_end_free,start_free}",
    "slenderness.limit.user.{compression,tension}",
    "slenderness.limit.no_axial_force",
    "slenderness.limit.{column,brace,truss,other}.{compression,tension}",
    # stability coefficients
    f"phi.{{table,tail}}.{HARDENING}",
    "phi.{negative_index,nan,infinite.positive,infinite.negative}",
    "X.other_shape",
    "X.{slender,stocky}.{C,H,B}",
    "Y.{welded,plain}",
    f"{{eta_e,eta1,eta2}}.{HARDENING}",
    "eta.{closed,open}",
    "phi_b.{user,closed.B,closed.P,zero_slenderness.one,not_a_number}",
    f"phi_b.{{formula,capped}}.{HARDENING}",
    "mcr.beam.{free,restrained}.{mid,no_mid}",
    "mcr.{column,brace}.{mid,no_mid}",
    "mcr.other_member",
    "mcr.length.{half,whole}",
    "beta_y.{C,H,T,2C,SR,end_section,inner_section}",
    "beta_m.{y,z}.{user,own_attribute,sway,computed}",
    "beta_m.{y,z}.loading.{0,1,2,3,other}",
    "beta_m.{y,z}.larger_end.{first,second}",
    "beta_m.{y,z}.no_end_moment",
    # stability checks
    "stability.axial.{phi_y_governs,phi_z_governs,formed,zero_phi}",
    "stability.bending.{top,bottom,zero_denominator}",
    "stability.in_plane.{symmetric,unsymmetric.my_positive,unsymmetric.my_not_positive}",
    "stability.in_plane.bottom_modulus.{formed,zero}",
    "stability.in_plane.governing.{top,bottom}",
    "combined_stability.{symmetric,unsymmetric}",
)

#: guards that no call of the engine entry can meet; the unit tests call them directly
BEHIND_THE_ENTRY = {
    "material.thickness.unknown_shape": "an unknown shape forms no section parameters",
    "plasticity.unknown.weak": "an unknown shape forms no section parameters",
    "plasticity.unknown.strong": "an unknown shape forms no section parameters",
    "beta_y.unknown": "an unknown shape forms no section parameters",
    "beta_y.B": "phi_b of a box is 1 without a critical moment",
    "beta_y.P": "phi_b of a pipe is 1 without a critical moment",
    "phi_b.zero_slenderness.zero": "alpha is above -0.08 where lambda_b is zero",
    "strength.bending.zero_modulus": "a zero modulus forms no section parameters",
    "strength.combined.zero_modulus": "a zero modulus forms no section parameters",
    "strength.bottom_modulus.zero": "a zero modulus forms no section parameters",
}


def expand(pattern):
    """Names of a pattern with {a,b} alternatives."""
    parts = re.split(r"\{([^}]*)\}", pattern)
    choices = [part.split(",") if place % 2 else [part] for place, part in enumerate(parts)]
    return ["".join(choice) for choice in itertools.product(*choices)]


ALL = tuple(name for pattern in PATTERNS for name in expand(pattern))
