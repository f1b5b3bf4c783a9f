// The datums: constant data, and the only place where they stand.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "kernel/ellipsoids.h"
#include "tessara/kernel/datum.h"

namespace tessara {

template <std::size_t N>
consteval DatumRow Row(std::uint32_t id, const char (&name)[N], EllipsoidCode code, double dx, double dy,
                       double dz) {
    static_assert(N <= sizeof(DatumRow::name));
    const EllipsoidFigure& figure = ELLIPSOIDS[code];
    DatumRow row{};
    row.id = id;
    for (std::size_t i = 0; i < N; ++i)
        row.name[i] = name[i];
    row.ellipsoid = code;
    row.a = figure.a;
    row.f = figure.Flattening();
    row.dx = dx;
    row.dy = dy;
    row.dz = dz;
    row.e2 = figure.EccentricitySquared();
    return row;
}

// Number, name, ellipsoid and the translation to WGS84 in metres. Most of the rows are those of DMA TR
// 8350.2, named by its datum codes; regional codes end in a letter, and _M is the mean solution of a datum.
// clang-format off
inline constexpr std::array<DatumRow, DATUM_COUNT> DATUMS{{
    Row(0, "Kugel", ELLIPSOID_KUGEL, 0, 0, 0),
    Row(1, "EUR_M", ELLIPSOID_INTERNATIONAL, -87, -98, -121),
    Row(2, "WGS84", ELLIPSOID_WGS84, 0, 0, 0),
    Row(3, "GER", ELLIPSOID_BESSEL, 604, 21, 415),
    Row(4, "NAD27", ELLIPSOID_CLARKE, -8, 160, 176),
    Row(5, "WGS72", ELLIPSOID_WGS72, 0, 0, 4.5),
    Row(6, "MGI", ELLIPSOID_BESSEL, 577, 90, 464),
    Row(7, "CH1903", ELLIPSOID_BESSEL, 674, 14, 405),
    Row(8, "KKJ", ELLIPSOID_INTERNATIONAL, 78, 231, 97),
    Row(9, "ETRS89", ELLIPSOID_GRS_1980, 0, -1, 0),
    Row(10, "KS42/83", ELLIPSOID_KRASSOVSKY, -6, -130, -120),
    Row(11, "NAD83", ELLIPSOID_GRS_1980, 0, 0, 0),
    Row(12, "NAH_B", ELLIPSOID_CLARKE_1880, -249, -156, 381),
    Row(13, "ADI_M", ELLIPSOID_CLARKE_1880, -166, -15, 204),
    Row(14, "ADI_E", ELLIPSOID_CLARKE_1880, -118, -14, 218),
    Row(15, "ADI_F", ELLIPSOID_CLARKE_1880, -134, -2, 210),
    Row(16, "ADI_A", ELLIPSOID_CLARKE_1880, -165, -11, 206),
    Row(17, "ADI_C", ELLIPSOID_CLARKE_1880, -123, -20, 220),
    Row(18, "ADI_D", ELLIPSOID_CLARKE_1880, -128, -18, 224),
    Row(19, "ADI_B", ELLIPSOID_CLARKE_1880, -161, -14, 205),
    Row(20, "AFG", ELLIPSOID_KRASSOVSKY, -43, -163, 45),
    Row(21, "ARF_M", ELLIPSOID_CLARKE_1880, -143, -90, -294),
    Row(22, "ARF_A", ELLIPSOID_CLARKE_1880, -138, -105, -289),
    Row(23, "ARF_H", ELLIPSOID_CLARKE_1880, -153, -5, -292),
    Row(24, "ARF_B", ELLIPSOID_CLARKE_1880, -125, -108, -295),
    Row(25, "ARF_C", ELLIPSOID_CLARKE_1880, -161, -73, -317),
    Row(26, "ARF_D", ELLIPSOID_CLARKE_1880, -134, -105, -295),
    Row(27, "ARF_E", ELLIPSOID_CLARKE_1880, -169, -19, -278),
    Row(28, "ARF_F", ELLIPSOID_CLARKE_1880, -147, -74, -283),
    Row(29, "ARF_G", ELLIPSOID_CLARKE_1880, -142, -96, -293),
    Row(30, "ARS_M", ELLIPSOID_CLARKE_1880, -160, -6, -302),
    Row(31, "ARS_A", ELLIPSOID_CLARKE_1880, -157, -2, -299),
    Row(32, "ARS_B", ELLIPSOID_CLARKE_1880, -175, -23, -303),
    Row(33, "PHA", ELLIPSOID_CLARKE_1880, -79, -129, 145),
    Row(34, "BID", ELLIPSOID_INTERNATIONAL, -173, 253, 27),
    Row(35, "CAP", ELLIPSOID_CLARKE_1880, -136, -108, -292),
    Row(36, "CGE", ELLIPSOID_CLARKE_1880, -263, 6, 431),
    Row(37, "DAL", ELLIPSOID_CLARKE_1880, -83, 37, 124),
    Row(38, "EUR_F", ELLIPSOID_INTERNATIONAL, -130, -117, -151),
    Row(39, "EUR_T", ELLIPSOID_INTERNATIONAL, -112, -77, -145),
    Row(40, "LEH", ELLIPSOID_CLARKE_1880, -130, 29, 364),
    Row(41, "LIB", ELLIPSOID_CLARKE_1880, -90, 40, 88),
    Row(42, "MAS", ELLIPSOID_BESSEL, 639, 405, 60),
    Row(43, "MER", ELLIPSOID_CLARKE_1880, 31, 146, 47),
    Row(44, "MIN_A", ELLIPSOID_CLARKE_1880, -81, -84, 115),
    Row(45, "MIN_B", ELLIPSOID_CLARKE_1880, -92, -93, 122),
    Row(46, "MPO", ELLIPSOID_CLARKE_1880, -74, -130, 42),
    Row(47, "NSD", ELLIPSOID_CLARKE_1880, -186, -93, 310),
    Row(48, "OEG", ELLIPSOID_HELMERT_1906, -130, 110, -13),
    Row(49, "PTB", ELLIPSOID_CLARKE_1880, -106, -129, 165),
    Row(50, "PTN", ELLIPSOID_CLARKE_1880, -148, 51, -291),
    Row(51, "SCK", ELLIPSOID_BESSEL_NAMIBIA_1841, 616, 97, -251),
    Row(52, "SRL", ELLIPSOID_CLARKE_1880, -88, 4, 101),
    Row(53, "VOR", ELLIPSOID_CLARKE_1880, -123, -206, 219),
    Row(54, "AIN_A", ELLIPSOID_INTERNATIONAL, -150, -250, -1),
    Row(55, "AIN_B", ELLIPSOID_INTERNATIONAL, -143, -236, 7),
    Row(56, "BAT", ELLIPSOID_BESSEL, -377, 681, -50),
    Row(57, "EUR_H", ELLIPSOID_INTERNATIONAL, -117, -132, -164),
    Row(58, "HKD", ELLIPSOID_INTERNATIONAL, -156, -271, -189),
    Row(59, "HTN", ELLIPSOID_INTERNATIONAL, -637, -549, -203),
    Row(60, "IND_B", ELLIPSOID_EVEREST_INDIA_1830, 282, 726, 254),
    Row(61, "IND_I", ELLIPSOID_EVEREST_INDIA_1956, 295, 736, 257),
    Row(62, "INF_A", ELLIPSOID_EVEREST_INDIA_1830, 217, 823, 299),
    Row(63, "ING_A", ELLIPSOID_EVEREST_INDIA_1830, 198, 881, 317),
    Row(64, "ING_B", ELLIPSOID_EVEREST_INDIA_1830, 182, 915, 344),
    Row(65, "INH_A", ELLIPSOID_EVEREST_INDIA_1830, 209, 818, 290),
    Row(66, "INH_A1", ELLIPSOID_EVEREST_INDIA_1830, 210, 814, 289),
    Row(67, "IDN", ELLIPSOID_INDONESIAN_1974, -24, -15, 5),
    Row(68, "KAN", ELLIPSOID_EVEREST_INDIA_1830, -97, 787, 86),
    Row(69, "KEA", ELLIPSOID_EVEREST_MALAYSIA_1948, -11, 851, 5),
    Row(70, "KGS", ELLIPSOID_WGS84, 0, 0, 0),
    Row(71, "NAH_A", ELLIPSOID_CLARKE_1880, -247, -148, 369),
    Row(72, "NAH_C", ELLIPSOID_CLARKE_1880, -243, -192, 477),
    Row(73, "FAH", ELLIPSOID_CLARKE_1880, -346, -1, 224),
    Row(74, "QAT", ELLIPSOID_INTERNATIONAL, -128, -283, 22),
    Row(75, "SOA", ELLIPSOID_MOD_FISCHER_1960, 7, -10, -26),
    Row(76, "TIL", ELLIPSOID_EVEREST_BRUNEI, -679, 669, -48),
    Row(77, "TOY_M", ELLIPSOID_BESSEL, -148, 507, 685),
    Row(78, "TOY_A", ELLIPSOID_BESSEL, -148, 507, 685),
    Row(79, "TOY_C", ELLIPSOID_BESSEL, -158, 507, 676),
    Row(80, "TOY_B", ELLIPSOID_BESSEL, -146, 507, 687),
    Row(81, "TOY_B1", ELLIPSOID_BESSEL, -147, 506, 687),
    Row(82, "AUA", ELLIPSOID_AUSTRALIAN, -133, -48, 148),
    Row(83, "AUG", ELLIPSOID_AUSTRALIAN, -134, -48, 149),
    Row(84, "EST", ELLIPSOID_BESSEL, 374, 150, 588),
    Row(85, "EUR_A", ELLIPSOID_INTERNATIONAL, -87, -96, -120),
    Row(86, "EUR_E", ELLIPSOID_INTERNATIONAL, -104, -101, -140),
    Row(87, "EUR_G", ELLIPSOID_INTERNATIONAL, -86, -96, -120),
    Row(88, "EUR_K", ELLIPSOID_INTERNATIONAL, -86, -96, -120),
    Row(89, "EUR_B", ELLIPSOID_INTERNATIONAL, -84, -95, -130),
    Row(90, "EUR_I", ELLIPSOID_INTERNATIONAL, -97, -103, -120),
    Row(91, "EUR_J", ELLIPSOID_INTERNATIONAL, -97, -88, -135),
    Row(92, "EUR_L", ELLIPSOID_INTERNATIONAL, -107, -88, -149),
    Row(93, "EUR_C", ELLIPSOID_INTERNATIONAL, -87, -95, -120),
    Row(94, "EUR_D", ELLIPSOID_INTERNATIONAL, -84, -107, -120),
    Row(95, "EUS", ELLIPSOID_INTERNATIONAL, -86, -98, -119),
    Row(96, "HJO", ELLIPSOID_INTERNATIONAL, -73, 46, -86),
    Row(97, "IRL", ELLIPSOID_MOD_AIRY, 506, -122, 611),
    Row(98, "OGB_M", ELLIPSOID_AIRY_1830, 375, -111, 431),
    Row(99, "OGB_A", ELLIPSOID_AIRY_1830, 371, -112, 434),
    Row(100, "OGB_B", ELLIPSOID_AIRY_1830, 371, -111, 434),
    Row(101, "OGB_C", ELLIPSOID_AIRY_1830, 384, -111, 425),
    Row(102, "OGB_D", ELLIPSOID_AIRY_1830, 370, -108, 434),
    Row(103, "MOD", ELLIPSOID_INTERNATIONAL, -225, -65, 9),
    Row(104, "SPK_A", ELLIPSOID_KRASSOVSKY, 28, -121, -77),
    Row(105, "SPK_B", ELLIPSOID_KRASSOVSKY, 23, -124, -82),
    Row(106, "SPK_C", ELLIPSOID_KRASSOVSKY, 26, -121, -78),
    Row(107, "SPK_D", ELLIPSOID_KRASSOVSKY, 24, -124, -82),
    Row(108, "SPK_E", ELLIPSOID_KRASSOVSKY, 15, -130, -84),
    Row(109, "SPK_F", ELLIPSOID_KRASSOVSKY, 24, -130, -92),
    Row(110, "SPK_G", ELLIPSOID_KRASSOVSKY, 28, -121, -77),
    Row(111, "CCD", ELLIPSOID_BESSEL, 589, 76, 480),
    Row(112, "CAC", ELLIPSOID_CLARKE, -2, 151, 181),
    Row(113, "NAS_B", ELLIPSOID_CLARKE, -8, 159, 175),
    Row(114, "NAS_A", ELLIPSOID_CLARKE, -9, 161, 179),
    Row(115, "NAS_D", ELLIPSOID_CLARKE, -5, 135, 172),
    Row(116, "NAS_V", ELLIPSOID_CLARKE, -2, 152, 149),
    Row(117, "NAS_W", ELLIPSOID_CLARKE, 2, 204, 105),
    Row(118, "NAS_Q", ELLIPSOID_CLARKE, -4, 154, 178),
    Row(119, "NAS_R", ELLIPSOID_CLARKE, 1, 140, 165),
    Row(120, "NAS_E", ELLIPSOID_CLARKE, -10, 158, 187),
    Row(121, "NAS_F", ELLIPSOID_CLARKE, -7, 162, 188),
    Row(122, "NAS_G", ELLIPSOID_CLARKE, -22, 160, 190),
    Row(123, "NAS_H", ELLIPSOID_CLARKE, -9, 157, 184),
    Row(124, "NAS_I", ELLIPSOID_CLARKE, 4, 159, 188),
    Row(125, "NAS_J", ELLIPSOID_CLARKE, -7, 139, 181),
    Row(126, "NAS_O", ELLIPSOID_CLARKE, 0, 125, 201),
    Row(127, "NAS_P", ELLIPSOID_CLARKE, -3, 142, 183),
    Row(128, "NAS_N", ELLIPSOID_CLARKE, 0, 125, 194),
    Row(129, "NAS_T", ELLIPSOID_CLARKE, -9, 152, 178),
    Row(130, "NAS_U", ELLIPSOID_CLARKE, 11, 114, 195),
    Row(131, "NAS_L", ELLIPSOID_CLARKE, -12, 130, 190),
    Row(132, "NAR_A", ELLIPSOID_GRS_1980, 0, 0, 0),
    Row(133, "NAR_E", ELLIPSOID_GRS_1980, -2, 0, 4),
    Row(134, "NAR_B", ELLIPSOID_GRS_1980, 0, 0, 0),
    Row(135, "NAR_H", ELLIPSOID_GRS_1980, 1, 1, -1),
    Row(136, "NAR_D", ELLIPSOID_GRS_1980, 0, 0, 0),
    Row(137, "BOO", ELLIPSOID_INTERNATIONAL, 307, 304, -318),
    Row(138, "CAI", ELLIPSOID_INTERNATIONAL, -148, 136, 90),
    Row(139, "CHU", ELLIPSOID_INTERNATIONAL, -134, 229, -29),
    Row(140, "COA", ELLIPSOID_INTERNATIONAL, -206, 172, -6),
    Row(141, "PRP_M", ELLIPSOID_INTERNATIONAL, -288, 175, -376),
    Row(142, "PRP_A", ELLIPSOID_INTERNATIONAL, -270, 188, -388),
    Row(143, "PRP_B", ELLIPSOID_INTERNATIONAL, -270, 183, -390),
    Row(144, "PRP_C", ELLIPSOID_INTERNATIONAL, -305, 243, -442),
    Row(145, "PRP_D", ELLIPSOID_INTERNATIONAL, -282, 169, -371),
    Row(146, "PRP_E", ELLIPSOID_INTERNATIONAL, -278, 171, -367),
    Row(147, "PRP_F", ELLIPSOID_INTERNATIONAL, -298, 159, -369),
    Row(148, "PRP_G", ELLIPSOID_INTERNATIONAL, -279, 175, -379),
    Row(149, "PRP_H", ELLIPSOID_INTERNATIONAL, -295, 173, -371),
    Row(150, "HIT", ELLIPSOID_INTERNATIONAL, 16, 196, 93),
    Row(151, "SAN_M", ELLIPSOID_SOUTH_AMERICAN_1969, -57, 1, -41),
    Row(152, "SAN_A", ELLIPSOID_SOUTH_AMERICAN_1969, -62, -1, -37),
    Row(153, "SAN_B", ELLIPSOID_SOUTH_AMERICAN_1969, -61, 2, -48),
    Row(154, "SAN_C", ELLIPSOID_SOUTH_AMERICAN_1969, -60, -2, -41),
    Row(155, "SAN_D", ELLIPSOID_SOUTH_AMERICAN_1969, -75, -1, -44),
    Row(156, "SAN_E", ELLIPSOID_SOUTH_AMERICAN_1969, -44, 6, -36),
    Row(157, "SAN_F", ELLIPSOID_SOUTH_AMERICAN_1969, -48, 3, -44),
    Row(158, "SAN_J", ELLIPSOID_SOUTH_AMERICAN_1969, -47, 26, -42),
    Row(159, "SAN_G", ELLIPSOID_SOUTH_AMERICAN_1969, -53, 3, -47),
    Row(160, "SAN_H", ELLIPSOID_SOUTH_AMERICAN_1969, -61, 2, -33),
    Row(161, "SAN_I", ELLIPSOID_SOUTH_AMERICAN_1969, -58, 0, -44),
    Row(162, "SAN_K", ELLIPSOID_SOUTH_AMERICAN_1969, -45, 12, -33),
    Row(163, "SAN_L", ELLIPSOID_SOUTH_AMERICAN_1969, -45, 8, -33),
    Row(164, "SIR", ELLIPSOID_GRS_1980, 0, 0, 0),
    Row(165, "ZAN", ELLIPSOID_INTERNATIONAL, -265, 120, -358),
    Row(166, "AIA", ELLIPSOID_CLARKE_1880, -270, 13, 62),
    Row(167, "ASC", ELLIPSOID_INTERNATIONAL, -205, 107, 53),
    Row(168, "SHB", ELLIPSOID_INTERNATIONAL, -320, 550, -494),
    Row(169, "BER", ELLIPSOID_CLARKE, -73, 213, 296),
    Row(170, "DID", ELLIPSOID_CLARKE_1880, 260, 12, -147),
    Row(171, "FOT", ELLIPSOID_CLARKE_1880, -7, 215, 225),
    Row(172, "GRA", ELLIPSOID_INTERNATIONAL, -104, 167, -38),
    Row(173, "ISG", ELLIPSOID_INTERNATIONAL, -794, 119, -298),
    Row(174, "LCF", ELLIPSOID_CLARKE, 42, 124, 147),
    Row(175, "ASM", ELLIPSOID_CLARKE_1880, 174, 359, 365),
    Row(176, "NAP", ELLIPSOID_INTERNATIONAL, -10, 375, 165),
    Row(177, "FLO", ELLIPSOID_INTERNATIONAL, -425, -169, 81),
    Row(178, "PLN", ELLIPSOID_INTERNATIONAL, -307, -92, 127),
    Row(179, "POS", ELLIPSOID_INTERNATIONAL, -499, -249, 314),
    Row(180, "PUR", ELLIPSOID_CLARKE, 11, 72, -101),
    Row(181, "QUO", ELLIPSOID_INTERNATIONAL, 164, 138, -189),
    Row(182, "SAO", ELLIPSOID_INTERNATIONAL, -203, 141, 53),
    Row(183, "SAP", ELLIPSOID_INTERNATIONAL, -355, 21, 72),
    Row(184, "SGM", ELLIPSOID_INTERNATIONAL, -289, -124, 60),
    Row(185, "TDC", ELLIPSOID_INTERNATIONAL, -632, 438, -609),
    Row(186, "ANO", ELLIPSOID_AUSTRALIAN, -491, -22, 435),
    Row(187, "GAA", ELLIPSOID_INTERNATIONAL, -133, -321, 50),
    Row(188, "IST", ELLIPSOID_INTERNATIONAL, 208, -435, -229),
    Row(189, "KEG", ELLIPSOID_INTERNATIONAL, 145, -187, 103),
    Row(190, "MIK", ELLIPSOID_CLARKE_1880, 41, -220, -134),
    Row(191, "REU", ELLIPSOID_INTERNATIONAL, 94, -948, -1262),
    Row(192, "AMA", ELLIPSOID_CLARKE, -115, 118, 426),
    Row(193, "ATF", ELLIPSOID_INTERNATIONAL, 145, 75, -272),
    Row(194, "TRN", ELLIPSOID_INTERNATIONAL, 114, -116, -333),
    Row(195, "ASQ", ELLIPSOID_INTERNATIONAL, 124, -234, -25),
    Row(196, "IBE", ELLIPSOID_INTERNATIONAL, -127, -769, 472),
    Row(197, "CAO", ELLIPSOID_INTERNATIONAL, 298, -304, -375),
    Row(198, "CHI", ELLIPSOID_INTERNATIONAL, 175, -38, 113),
    Row(199, "GIZ", ELLIPSOID_INTERNATIONAL, 230, -199, -752),
    Row(200, "EAS", ELLIPSOID_INTERNATIONAL, 211, 147, 111),
    Row(201, "GEO", ELLIPSOID_INTERNATIONAL, 84, -22, 209),
    Row(202, "GUA", ELLIPSOID_CLARKE, -100, -248, 259),
    Row(203, "DOB", ELLIPSOID_INTERNATIONAL, 252, -209, -751),
    Row(204, "JOH", ELLIPSOID_INTERNATIONAL, 189, -79, -202),
    Row(205, "KUS", ELLIPSOID_INTERNATIONAL, 647, 1777, -1124),
    Row(206, "LUZ_A", ELLIPSOID_CLARKE, -133, -77, -51),
    Row(207, "LUZ_B", ELLIPSOID_CLARKE, -133, -79, -72),
    Row(208, "MID", ELLIPSOID_INTERNATIONAL, 912, -58, 1227),
    Row(209, "OHA_M", ELLIPSOID_CLARKE, 61, -285, -181),
    Row(210, "OHA_A", ELLIPSOID_CLARKE, 89, -279, -183),
    Row(211, "OHA_B", ELLIPSOID_CLARKE, 45, -290, -172),
    Row(212, "OHA_C", ELLIPSOID_CLARKE, 65, -290, -190),
    Row(213, "OHA_D", ELLIPSOID_CLARKE, 58, -283, -182),
    Row(214, "OHI_M", ELLIPSOID_INTERNATIONAL, 201, -228, -346),
    Row(215, "OHI_A", ELLIPSOID_INTERNATIONAL, 229, -222, -348),
    Row(216, "OHI_B", ELLIPSOID_INTERNATIONAL, 185, -233, -337),
    Row(217, "OHI_C", ELLIPSOID_INTERNATIONAL, 205, -233, -355),
    Row(218, "OHI_D", ELLIPSOID_INTERNATIONAL, 198, -226, -347),
    Row(219, "PIT", ELLIPSOID_INTERNATIONAL, 185, 165, 42),
    Row(220, "SAE", ELLIPSOID_INTERNATIONAL, 170, 42, 84),
    Row(221, "MVS", ELLIPSOID_CLARKE_1880, 51, 391, -36),
    Row(222, "ENW", ELLIPSOID_HOUGH_1960, 102, 52, -38),
    Row(223, "WAK", ELLIPSOID_INTERNATIONAL, 276, -57, 149),
    Row(224, "BUR", ELLIPSOID_BESSEL, -384, 664, -48),
    Row(225, "CAZ", ELLIPSOID_INTERNATIONAL, -104, -129, 239),
    Row(226, "EUR_S", ELLIPSOID_INTERNATIONAL, -103, -106, -141),
    Row(227, "GSE", ELLIPSOID_BESSEL, -403, 684, 41),
    Row(228, "HEN", ELLIPSOID_INTERNATIONAL, -333, -222, 114),
    Row(229, "HER", ELLIPSOID_BESSEL, 682, -203, 480),
    Row(230, "IND_P", ELLIPSOID_EVEREST_PAKISTAN, 283, 682, 231),
    Row(231, "PUK", ELLIPSOID_KRASSOVSKY, 28, -130, -95),
    Row(232, "TAN", ELLIPSOID_INTERNATIONAL, -189, -242, -91),
    Row(233, "VOI", ELLIPSOID_CLARKE_1880, -73, -247, 227),
    Row(234, "YAC", ELLIPSOID_INTERNATIONAL, -155, 171, 37),
    Row(235, "USERDEF", ELLIPSOID_USER_DEFINED, 0, 0, 0),
    Row(236, "NTF", ELLIPSOID_CLARKE_1880, -168, -60, 320),
    Row(237, "RDNAP", ELLIPSOID_BESSEL, 593, 26, 479),
    Row(238, "NTL", ELLIPSOID_INTERNATIONAL, -262, 75, 25),
}};
// clang-format on

static_assert([] {
    for (std::size_t i = 0; i < DATUMS.size(); ++i) {
        if (DATUMS[i].id != i) return false;
    }
    return true;
}());
static_assert(DATUMS[DATUM_WGS84].a == WGS84_A && DATUMS[DATUM_WGS84].f == WGS84_F);

// Datum_Row for the kernel's own use, where a call would cost more than the look-up.
[[nodiscard]] inline const DatumRow* RowOf(std::int32_t datum) {
    return datum >= 0 && datum < DATUM_COUNT ? &DATUMS[static_cast<std::size_t>(datum)] : nullptr;
}

// The steps from a datum to the hub WGS84 and back.
constexpr HubParams ToHubOf(const DatumRow& row) {
    return {.f = row.f,
            .a = row.a,
            .e2 = row.e2,
            .df = WGS84_F - row.f,
            .da = WGS84_A - row.a,
            .dx = row.dx,
            .dy = row.dy,
            .dz = row.dz};
}

constexpr HubParams FromHubOf(const DatumRow& row) {
    return {.f = WGS84_F,
            .a = WGS84_A,
            .e2 = DATUMS[DATUM_WGS84].e2,
            .df = -(WGS84_F - row.f),
            .da = -(WGS84_A - row.a),
            .dx = -row.dx,
            .dy = -row.dy,
            .dz = -row.dz};
}

// compute(figure) for each datum's ellipsoid and the datum's number.
template <class Constants>
consteval std::array<Constants, DATUM_COUNT> ForEachDatum(Constants (*compute)(const EllipsoidFigure&,
                                                                               std::int32_t)) {
    std::array<Constants, DATUM_COUNT> table{};
    for (const DatumRow& row : DATUMS)
        table[row.id] = compute(ELLIPSOIDS[row.ellipsoid], static_cast<std::int32_t>(row.id));
    return table;
}

// Datum_Shift between two datums 0..238, in degrees, with the constants of their rows, which are computed at
// compile time.
void ShiftBetween(std::int32_t sourceDatum, std::int32_t targetDatum, double latLon[2]);

}  // namespace tessara
