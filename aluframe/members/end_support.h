#pragma once

#include "aluframe/members/member_segments.h"

/// What the support of a node does to an element that ends there. Directions are unit vectors; a
/// support acts on one that lies within 1° of the directions that it restrains, and leaves any
/// other free.
namespace aluframe::members {

/// Sine of 1°: vectors closer than that are aligned.
inline constexpr double alignment = 0.01745;

/// The node at an end of an element.
model::Number node_of(const MemberSegments& segments, const ElementEnd& at);

/// The support there, or null.
const model::Support* support_at(const MemberSegments& segments, const ElementEnd& at);

bool fixes_rotation(const model::Support* support, const Eigen::Vector3d& axis);

/// Stiffness of the support's springs against a rotation, N·mm per rad; 0 without a support.
double spring_about(const model::Support* support, const Eigen::Vector3d& axis);

/// Stiffness of the support's springs against moving along a direction, N/mm; 0 without a support.
double spring_along(const model::Support* support, const Eigen::Vector3d& direction);

/// Whether an end slides along a direction because the element does not pass its shear on there.
bool is_released_along(const MemberSegments& segments, const ElementEnd& at,
                       const Eigen::Vector3d& direction);

/// Whether a support restrains an end rigidly along a direction square to the element. A support
/// that does not act along the direction restrains it too when whatever it leaves free would
/// change the bar's length: a vertical support under a sloping beam. None holds an end that slides.
bool is_restrained_along(const MemberSegments& segments, const ElementEnd& at,
                         const Eigen::Vector3d& direction);

/// Whether an end is free along a direction: it slides, or no other element is there, and no
/// support that acts that way.
bool is_free_end(const MemberSegments& segments, const ElementEnd& at,
                 const Eigen::Vector3d& direction);

/// Whether an end passes moments about both its axes on.
bool is_rigid(const MemberSegments& segments, const ElementEnd& at);

/// Whether an element goes on in another that it meets: straight, or through a kink of up to 30°.
bool goes_on(const MemberSegments& segments, const ElementEnd& at, const ElementEnd& other);

/// Whether a support or a spring takes part when an element that ends there bends about an axis: by
/// the deflection or by the rotation. One that restrains it sideways only does not.
bool acts_on_bending(const MemberSegments& segments, const ElementEnd& at,
                     const Eigen::Vector3d& about);

}  // namespace aluframe::members
