#pragma once

// The report's texts beyond ASCII, as code points: they are written as they stand and never
// normalised. Encoded in code page 949 and read as GBK they are Chinese, which the comments tell.

namespace alu_report {

inline constexpr wchar_t kDash[] = L"\uCB6F";                // –
inline constexpr wchar_t kSeismicFactor[] = L", \u251ARE=";  // , γRE=

inline constexpr wchar_t kCombinationsTitle[] = L"\uBD50\u6F7C\u8389\uBD81";  // 荷载组合
inline constexpr wchar_t kStrengthTitle[] = L"\uD4FB\uB611\uF91A\u70AC";      // 强度验算
inline constexpr wchar_t kStabilityTitle[] =
    L"\u83C9\u8568\u6D38\uB54D\uF91A\u70AC";  // 轴向稳定验算
// 轴向稳定验算(Y向), (Z向)
inline constexpr wchar_t kStabilityYTitle[] = L"\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Y\u8568)";
inline constexpr wchar_t kStabilityZTitle[] = L"\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Z\u8568)";
// 抗剪强度验算(Y向), (Z向)
inline constexpr wchar_t kShearYTitle[] = L"\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Y\u8568)";
inline constexpr wchar_t kShearZTitle[] = L"\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Z\u8568)";
inline constexpr wchar_t kSlendernessTitle[] = L"\uB080\u7396\uAD90\uF91A\u70AC";  // 长细比验算

// 弯矩作用平面内稳定, 弯矩作用平面外稳定
inline constexpr wchar_t kInPlaneText[] =
    L"\u7428\uC564\u9C57\u75F0\uD2F1\uCDA9\uCF54\u6D38\uB54D:";
inline constexpr wchar_t kOutOfPlaneText[] =
    L"\u7428\uC564\u9C57\u75F0\uD2F1\uCDA9\u68CD\u6D38\uB54D:";
// 局部坐标系y轴方向的剪应力, z轴
inline constexpr wchar_t kShearYText[] =
    L"\uC560\uAF2C\u9E9F\uAE43\u6E9Dy\u83C9\uB818\u8568\uB3E8\uC20F\u58C7\uC81C";
inline constexpr wchar_t kShearZText[] =
    L"\uC560\uAF2C\u9E9F\uAE43\u6E9Dz\u83C9\uB818\u8568\uB3E8\uC20F\u58C7\uC81C";
// 轴向受压构件长细比（kl/i验算）, 轴向受拉构件长细比（kl/i验算）
inline constexpr wchar_t kCompressedText[] =
    L"\u83C9\u8568\u809D\u7B95\uBB50\uC22D\uB080\u7396\uAD90\uFF08kl/i\uF91A\u70AC\uFF09";
inline constexpr wchar_t kPulledText[] =
    L"\u83C9\u8568\u809D\uC717\uBB50\uC22D\uB080\u7396\uAD90\uFF08kl/i\uF91A\u70AC\uFF09";

}  // namespace alu_report
