#include "conversion/datum_descriptions.h"

#include <array>

#include "conversion/ascii.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "tessara/kernel/datum.h"

namespace tessara::toolkit {
namespace {

// In the order of the datum numbers. Names, areas and accuracies come from the EPSG and ESRI registries, from
// the transformations with the translations of the datums, in the database of PROJ 9.1.1 with EPSG v10.076:
//   SELECT h.name, h.accuracy, e.description FROM helmert_transformation h
//     JOIN usage u ON u.object_auth_name = h.auth_name AND u.object_code = h.code
//       AND u.object_table_name = 'helmert_transformation'
//     JOIN extent e ON e.auth_name = u.extent_auth_name AND e.code = u.extent_code
//     WHERE h.auth_name = '$authority' AND h.code = '$code'
// There, an accuracy of 999 m means unknown. Long areas are shortened. For datums without a code, the
// registries have a different translation or no accuracy.
// clang-format off
constexpr std::array<DatumDescription, DATUM_COUNT> DESCRIPTIONS{{
    {"Sphere of 6371 km", "World", "World, for small scales", 0, ""},
    {"ED50", "Europe", "Austria; Belgium; Denmark; Finland; Faroe islands; France; Germany (west); Gibraltar; Greece; Italy; Luxembourg; Netherlands; Norway; Portugal; Spain; Sweden; Switzerland", 10, "EPSG 1133"},
    {"WGS 84", "World", "World", 0, ""},
    {"DHDN", "Europe", "Germany", 0, ""},
    {"NAD27", "North America", "United States (USA) - CONUS onshore - Alabama; Arizona; Arkansas; California; Colorado; Connecticut; Delaware; Florida; Georgia; Idaho; Illinois; Indiana and others", 10, "EPSG 1173"},
    {"WGS 72", "World", "World", 0, ""},
    {"MGI", "Europe", "Austria", 0, ""},
    {"CH1903", "Europe", "Switzerland; Liechtenstein", 0, ""},
    {"KKJ", "Europe", "Finland", 0, ""},
    {"ETRS89", "Europe", "Europe", 0, ""},
    {"Pulkovo 1942(83)", "Europe", "Germany - eastern states", 0, ""},
    {"NAD83", "North America", "Canada and United States (USA) - onshore and offshore", 4, "EPSG 1188"},
    {"Nahrwan 1967", "Asia", "United Arab Emirates (UAE) - onshore and offshore. Abu Dhabi, Dubai, Sharjah, Umm al Qaywayn, Al Fujairah, Ras al Khaymah", 44, "EPSG 1191"},
    {"Adindan", "Africa", "Eritrea; Ethiopia; South Sudan; Sudan", 9, "EPSG 1100"},
    {"Adindan", "Africa", "Burkina Faso", 44, "EPSG 1101"},
    {"Adindan", "Africa", "Cameroon - onshore", 44, "EPSG 1102"},
    {"Adindan", "Africa", "Ethiopia", 6, "EPSG 1103"},
    {"Adindan", "Africa", "Mali", 44, "EPSG 1104"},
    {"Adindan", "Africa", "Senegal - onshore", 44, "EPSG 1105"},
    {"Adindan", "Africa", "South Sudan. Sudan - onshore", 7, "EPSG 1106"},
    {"Afgooye", "Africa", "Somalia - onshore", 44, "EPSG 1107"},
    {"Arc 1950", "Africa", "Botswana; Eswatini (Swaziland); Lesotho; Malawi; Zambia; Zimbabwe", 44, "EPSG 1113"},
    {"Arc 1950", "Africa", "Botswana", 7, "EPSG 1114"},
    {"Arc 1950", "Africa", "Burundi", 35, "EPSG 1115"},
    {"Arc 1950", "Africa", "Lesotho", 10, "EPSG 1116"},
    {"Arc 1950", "Africa", "Malawi", 27, "EPSG 1117"},
    {"Arc 1950", "Africa", "Eswatini (Swaziland)", 26, "EPSG 1118"},
    {"Arc 1950", "Africa", "The Democratic Republic of the Congo (Zaire) - onshore and offshore", 25, "EPSG 1119"},
    {"Arc 1950", "Africa", "Zambia", 41, "EPSG 1120"},
    {"Arc 1950", "Africa", "Zimbabwe", 15, "EPSG 1121"},
    {"Arc 1960", "Africa", "Kenya; Tanzania", 35, "EPSG 1122"},
    {"Arc 1960", "Africa", "Kenya - onshore", 6, "EPSG 1284"},
    {"Arc 1960", "Africa", "Tanzania - onshore", 15, "EPSG 1285"},
    {"Ayabelle Lighthouse", "Africa", "Djibouti - onshore and offshore", 44, "EPSG 15800"},
    {"Bissau", "Africa", "Guinea-Bissau - onshore", 25, "EPSG 1547"},
    {"Cape", "Africa", "South Africa - mainland onshore", 9, "EPSG 1128"},
    {"Carthage", "Africa", "Tunisia - onshore and offshore", 14, "EPSG 1130"},
    {"Dabola 1981", "Africa", "Guinea - onshore", 25, "EPSG 1518"},
    {"ED50", "Africa", "Egypt - Western Desert", 13, "EPSG 1137"},
    {"ED50", "Africa", "Tunisia - onshore and offshore", 44, "EPSG 1245"},
    {"Leigon", "Africa", "Ghana - onshore and offshore", 5, "EPSG 1159"},
    {"Liberia 1964", "Africa", "Liberia - onshore", 26, "EPSG 1160"},
    {"Massawa", "Africa", "Eritrea - onshore and offshore", 44, "EPSG 1165"},
    {"Merchich", "Africa", "Morocco - onshore", 7, "EPSG 1166"},
    {"Minna", "Africa", "Cameroon - onshore", 44, "EPSG 1167"},
    {"Minna", "Africa", "Nigeria - onshore and offshore", 15, "EPSG 1168"},
    {"M'poraloko", "Africa", "Gabon - onshore and offshore", 44, "EPSG 1163"},
    {"Nord Sahara 1959", "Africa", "Algeria - onshore", 44, "EPSG 1253"},
    {"Egypt 1907", "Africa", "Egypt - onshore and offshore", 11, "EPSG 1148"},
    {"Point 58", "Africa", "Burkina Faso - central; Niger - southwest, in proximity to the parallel of latitude of 12 degrees N", 44, "EPSG 1880"},
    {"Pointe Noire", "Africa", "Congo - onshore and offshore", 44, "EPSG 1200"},
    {"Schwarzeck", "Africa", "Namibia - onshore and offshore", 35, "EPSG 1226"},
    {"Sierra Leone 1968", "Africa", "Sierra Leone - onshore", 26, "EPSG 1614"},
    {"Nord Sahara 1959", "Africa", "Algeria - onshore north of 32 degrees N", 44, "EPSG 1255"},
    {"Ain el Abd", "Asia", "Bahrain - onshore", 44, "EPSG 1110"},
    {"Ain el Abd", "Asia", "Saudi Arabia - onshore", 18, "EPSG 1111"},
    {"Batavia", "Asia", "Indonesia - Sumatra", 6, "EPSG 1123"},
    {"ED50(ED77)", "Asia", "Iran - onshore and offshore", 19, "EPSG 1141"},
    {"Hong Kong 1963(67)", "Asia", "China - Hong Kong - onshore and offshore", 1, "EPSG 15842"},
    {"Hu Tzu Shan 1950", "Asia", "Taiwan, Republic of China - onshore - Taiwan Island, Penghu (Pescadores) Islands", 26, "EPSG 1152"},
    {"Kalianpur 1937", "Asia", "Bangladesh - onshore", 18, "EPSG 1155"},
    {"Kalianpur 1975", "Asia", "India - mainland onshore; Nepal", 22, "EPSG 1156"},
    {"Indian 1954", "Asia", "Thailand - onshore", 21, "EPSG 1153"},
    {"Indian 1960", "Asia", "Vietnam - onshore between 14 degrees N and 18 degrees N", 44, "EPSG 1542"},
    {"Indian 1960", "Asia", "Vietnam - Con Son Island", 44, "EPSG 1543"},
    {"Indian 1975", "Asia", "Thailand - onshore plus offshore Gulf of Thailand", 5, "EPSG 1154"},
    {"Indian 1975", "Asia", "Thailand - onshore plus offshore Gulf of Thailand", 5, "EPSG 1304"},
    {"ID74", "Asia", "Indonesia - onshore", 44, "EPSG 1248"},
    {"Kandawala", "Asia", "Sri Lanka - onshore", 35, "EPSG 1157"},
    {"Kertau 1968", "Asia", "Malaysia - West Malaysia onshore and offshore east coast; Singapore - onshore and offshore", 15, "EPSG 1158"},
    {"Korean Geodetic System 1995", "Asia", "Republic of Korea (South Korea)", 0, ""},
    {"Nahrwan 1967", "Asia", "Oman - Masirah Island", 44, "EPSG 1189"},
    {"Nahrwan 1967", "Asia", "Saudi Arabia - onshore Arabian Gulf coastal area", 35, "EPSG 1190"},
    {"Fahud", "Asia", "Oman - mainland onshore", 10, "EPSG 1256"},
    {"Qatar 1974", "Asia", "Qatar - onshore", 35, "EPSG 1561"},
    {"South Asia Singapore", "Asia", "Singapore - onshore and offshore", 0, "ESRI 108269"},
    {"Timbalai 1948", "Asia", "Brunei - onshore and offshore; Malaysia - East Malaysia (Sabah; Sarawak) - onshore and offshore", 19, "EPSG 1228"},
    {"Tokyo", "Asia", "Japan - onshore mainland and adjacent islands", 13, "EPSG 1231"},
    {"Tokyo", "Asia", "Japan - onshore; South Korea - onshore", 29, "EPSG 1230"},
    {"Tokyo", "Asia", "Japan - onshore Okinawa", 29, "EPSG 1233"},
    {"Tokyo", "Asia", "Republic of Korea (South Korea) - onshore", 13, "EPSG 1232"},
    {"Tokyo", "Asia", "Republic of Korea (South Korea) - onshore", 4, "EPSG 1305"},
    {"AGD66", "Australia", "Australia - Australian Capital Territory; New South Wales; Northern Territory; Queensland; South Australia; Tasmania; Western Australia; Victoria", 6, "EPSG 1108"},
    {"AGD84", "Australia", "Australia - Queensland, South Australia, Western Australia, federal areas offshore west of 129 degrees E", 4, "EPSG 1109"},
    {"Estonia 1937", "Europe", "Estonia - onshore and offshore", 4.7, "ESRI 108261"},
    {"ED50", "Europe", "Austria; Denmark; France; Germany (west); Netherlands; Switzerland", 6, "EPSG 1134"},
    {"ED50", "Europe", "Cyprus - onshore and offshore", 26, "EPSG 1136"},
    {"ED50", "Europe", "Channel islands - onshore. Ireland - onshore. Isle of Man - onshore. United Kingdom (UK) - onshore - England; Scotland; Wales; Northern Ireland", 6, "EPSG 1138"},
    {"ED50", "Europe", "Channel islands - onshore. Ireland - onshore. Isle of Man - onshore. United Kingdom (UK) - onshore - England; Scotland; Wales; Northern Ireland", 6, "EPSG 1138"},
    {"ED50", "Europe", "Greece - onshore", 44, "EPSG 1140"},
    {"ED50", "Europe", "Italy - Sardinia onshore", 44, "EPSG 1142"},
    {"ED50", "Europe", "Italy - Sicily onshore", 35, "EPSG 1143"},
    {"ED50", "Europe", "Malta - onshore", 44, "EPSG 1144"},
    {"ED50", "Europe", "Finland and Norway - onshore", 7, "EPSG 1139"},
    {"ED50", "Europe", "Portugal; Spain - mainland", 9, "EPSG 1145"},
    {"ED79", "Europe", "Europe - west", 6, "EPSG 15752"},
    {"Hjorsey 1955", "Europe", "Iceland - mainland", 7, "EPSG 1951"},
    {"TM65", "Europe", "Ireland - onshore. United Kingdom (UK) - Northern Ireland (Ulster) - onshore", 0, "EPSG 1229"},
    {"OSGB36", "Europe", "United Kingdom (UK) - Great Britain - England and Wales onshore, Scotland onshore and Western Isles nearshore including Sea of the Hebrides and The Minch and others", 21, "EPSG 1195"},
    {"OSGB36", "Europe", "United Kingdom (UK) - England onshore", 10, "EPSG 1196"},
    {"OSGB36", "Europe", "United Kingdom (UK) - England and Wales; Isle of Man - onshore", 21, "EPSG 1197"},
    {"OSGB36", "Europe", "United Kingdom (UK) - Scotland (including Orkney and Shetland Islands), onshore and nearshore", 18, "EPSG 1198"},
    {"OSGB36", "Europe", "United Kingdom (UK) - Wales onshore", 35, "EPSG 1199"},
    {"Monte Mario", "Europe", "Italy - Sardinia onshore", 44, "EPSG 1169"},
    {"Pulkovo 1942", "Europe", "Hungary", 4, "EPSG 1287"},
    {"Pulkovo 1942", "Europe", "Poland - onshore and offshore", 6, "EPSG 1288"},
    {"Pulkovo 1942", "Europe", "Czechia; Slovakia", 5, "EPSG 1289"},
    {"Pulkovo 1942", "Europe", "Latvia - onshore", 4, "EPSG 1290"},
    {"Pulkovo 1942", "Europe", "Kazakhstan - onshore including Caspian Sea", 44, "EPSG 1291"},
    {"Pulkovo 1942", "Europe", "Albania - onshore and offshore", 6, "EPSG 1292"},
    {"Pulkovo 1942", "Europe", "Romania - onshore and offshore", 7, "EPSG 1293"},
    {"S-JTSK", "Europe", "Czechia; Slovakia", 6, "EPSG 15965"},
    {"Cape Canaveral", "North America", "North America - onshore - Bahamas and USA - Florida (east)", 6, "EPSG 15804"},
    {"NAD27", "North America", "United States (USA) - CONUS west of Mississippi River - onshore - excludes those states covered under Area 2389 - Includes Arizona; Arkansas; California and others", 7, "EPSG 1175"},
    {"NAD27", "North America", "United States (USA) - CONUS east of Mississippi River - onshore - including entire states of Louisiana; Missouri; Minnesota as well as Alabama; Connecticut and others", 11, "EPSG 1174"},
    {"NAD27", "North America", "United States (USA) - Alaska mainland", 12, "EPSG 1176"},
    {"NAD27", "North America", "United States (USA) - Alaska - Aleutian Islands onshore east of 180 degrees E", 15, "EPSG 1249"},
    {"NAD27", "North America", "United States (USA) - Alaska - Aleutian Islands onshore west of 180 degrees W", 18, "EPSG 1250"},
    {"NAD27", "North America", "Bahamas - onshore southwest of a line from 27 degrees 30'N, 77 degrees 30'W through 23 degrees 15'N, 74 degrees 30'W to 22 degrees 30'N, 72 degrees 30'W", 8, "EPSG 1177"},
    {"NAD27", "North America", "Bahamas (San Salvador Island) - onshore", 44, "EPSG 1178"},
    {"NAD27", "North America", "Canada - onshore - Alberta; British Columbia; Manitoba; New Brunswick; Newfoundland and Labrador; Northwest Territories; Nova Scotia; Nunavut; Ontario and others", 20, "EPSG 1172"},
    {"NAD27", "North America", "Canada - Alberta; British Columbia", 13, "EPSG 1179"},
    {"NAD27", "North America", "Canada - onshore - New Brunswick; Newfoundland and Labrador; Nova Scotia; Prince Edward Island; Quebec", 9, "EPSG 1181"},
    {"NAD27", "North America", "Canada - Manitoba; Ontario", 12, "EPSG 1180"},
    {"NAD27", "North America", "Canada - Northwest Territories; Nunavut; Saskatchewan", 8, "EPSG 1182"},
    {"NAD27", "North America", "Canada - Yukon", 10, "EPSG 1183"},
    {"NAD27", "North America", "Panama - Canal Zone", 35, "EPSG 1184"},
    {"NAD27", "North America", "Antigua; Barbados; Barbuda; Cuba; Dominican Republic; Grand Cayman; Jamaica; Turks and Caicos Islands. Note: does not include other islands within this geographic area", 16, "EPSG 1170"},
    {"NAD27", "North America", "Onshore Belize, Costa Rica, El Salvador, Guatemala, Honduras and Nicaragua", 10, "EPSG 1171"},
    {"NAD27", "North America", "Cuba - onshore", 44, "EPSG 1185"},
    {"NAD27", "North America", "Greenland - Hayes Peninsula", 44, "EPSG 1186"},
    {"NAD27", "North America", "Mexico - onshore", 12, "EPSG 1187"},
    {"NAD83", "North America", "Canada and United States (USA) - onshore and offshore", 4, "EPSG 1188"},
    {"NAD83", "North America", "United States (USA) - Alaska - Aleutian Islands onshore", 8, "EPSG 1251"},
    {"NAD83", "North America", "Canada and United States (USA) - onshore and offshore", 4, "EPSG 1188"},
    {"NAD83", "North America", "United States (USA) - Hawaii - main islands onshore and offshore", 4, "EPSG 1252"},
    {"NAD83", "North America", "Canada and United States (USA) - onshore and offshore", 4, "EPSG 1188"},
    {"Bogota 1975", "South America", "Colombia - mainland and offshore Caribbean", 10, "EPSG 1125"},
    {"Campo Inchauspe", "South America", "Argentina - mainland onshore and Atlantic offshore Tierra del Fuego", 9, "EPSG 1127"},
    {"Chua", "South America", "Paraguay - north of 22 degrees S", 12, "EPSG 1131"},
    {"Corrego Alegre 1970-72", "South America", "Brazil - onshore - west of 54 degrees W and south of 18 degrees S; also south of 15 degrees S between 54 degrees W and 42 degrees W; also east of 42 degrees W", 8, "EPSG 1132"},
    {"PSAD56", "South America", "Bolivia; Chile - onshore north of 43 degrees 30'S; Ecuador - mainland onshore; Guyana - onshore; Peru - onshore; Venezuela - onshore", 42, "EPSG 1201"},
    {"PSAD56", "South America", "Bolivia", 19, "EPSG 1202"},
    {"PSAD56", "South America", "Chile - onshore north of 21 degrees 30'S", 44, "EPSG 1203"},
    {"PSAD56", "South America", "Chile - onshore between 39 degrees S and 43 degrees 30'S", 35, "EPSG 1204"},
    {"PSAD56", "South America", "Colombia - mainland onshore", 26, "EPSG 1205"},
    {"PSAD56", "South America", "Ecuador - mainland - onshore", 7, "EPSG 1206"},
    {"PSAD56", "South America", "Guyana - onshore and offshore", 17, "EPSG 1207"},
    {"PSAD56", "South America", "Peru - onshore", 16, "EPSG 1208"},
    {"PSAD56", "South America", "Venezuela - onshore", 23, "EPSG 1209"},
    {"Hito XVIII 1963", "South America", "Chile - Tierra del Fuego onshore", 44, "EPSG 1892"},
    {"SAD69", "South America", "South America - Argentina, Brazil, Bolivia, Chile, Colombia, Ecuador, French Guiana, Guyana, Paraguay, Peru, Suriname, Uruguay, Venezuela", 0, "EPSG 1212"},
    {"SAD69", "South America", "Argentina - onshore and offshore", 0, "EPSG 1213"},
    {"SAD69", "South America", "Bolivia", 0, "EPSG 1214"},
    {"SAD69", "South America", "Brazil - onshore and offshore. Includes Rocas, Fernando de Noronha archipelago, Trindade, Ihlas Martim Vaz and Sao Pedro e Sao Paulo", 0, "EPSG 1215"},
    {"SAD69", "South America", "Chile - onshore and offshore. Includes Easter Island, Juan Fernandez Islands, San Felix, and Sala y Gomez", 0, "EPSG 1216"},
    {"SAD69", "South America", "Colombia - onshore and offshore. Includes San Andres y Providencia, Malpelo Islands, Roncador Bank, Serrana Bank and Serranilla Bank", 0, "EPSG 1217"},
    {"SAD69", "South America", "Ecuador - onshore and offshore. Includes Galapagos Islands (Archipelago de Colon)", 0, "EPSG 1218"},
    {"SAD69", "South America", "Ecuador - Baltra; Galapagos - onshore", 0, "EPSG 1219"},
    {"SAD69", "South America", "Guyana - onshore and offshore", 0, "EPSG 1220"},
    {"SAD69", "South America", "Paraguay", 0, "EPSG 1221"},
    {"SAD69", "South America", "Peru - onshore and offshore", 0, "EPSG 1222"},
    {"SAD69", "South America", "Trinidad and Tobago - onshore and offshore", 0, "EPSG 1223"},
    {"SAD69", "South America", "Venezuela - onshore and offshore", 0, "EPSG 1224"},
    {"SIRGAS", "South America", "South America", 0, ""},
    {"Zanderij", "South America", "Suriname - onshore and offshore", 11, "EPSG 1235"},
    {"Antigua 1943", "Atlantic Ocean", "Antigua island - onshore", 44, "EPSG 15811"},
    {"Ascension Island 1958", "Atlantic Ocean", "St Helena, Ascension and Tristan da Cunha - Ascension Island - onshore", 44, "EPSG 15797"},
    {"Astro DOS 71", "Atlantic Ocean", "St Helena, Ascension and Tristan da Cunha - St Helena Island - onshore", 44, "EPSG 15798"},
    {"Bermuda 1957", "Atlantic Ocean", "Bermuda - onshore", 35, "EPSG 1124"},
    {"Deception Island", "Atlantic Ocean", "Antarctica - South Shetland Islands - Deception Island", 35, "EPSG 15812"},
    {"St. Kitts 1955", "Atlantic Ocean", "St Kitts and Nevis - onshore", 44, "EPSG 15750"},
    {"Azores Central 1948", "Atlantic Ocean", "Portugal - central Azores onshore - Faial, Graciosa, Pico, Sao Jorge, Terceira", 6, "EPSG 1886"},
    {"South Georgia 1968", "Atlantic Ocean", "South Georgia and the South Sandwich Islands - South Georgia onshore", 44, "EPSG 15813"},
    {"SIGD61", "Atlantic Ocean", "Cayman Islands - Little Cayman and Cayman Brac", 44, "EPSG 15814"},
    {"Montserrat 1958", "Atlantic Ocean", "Montserrat - onshore", 44, "EPSG 1444"},
    {"Naparima 1972", "Atlantic Ocean", "Trinidad and Tobago - Tobago - onshore", 33, "EPSG 1192"},
    {"Azores Occidental 1939", "Atlantic Ocean", "Portugal - western Azores onshore - Flores, Corvo", 35, "EPSG 1887"},
    {"PN68", "Atlantic Ocean", "Spain - Canary Islands onshore", 44, "EPSG 9743"},
    {"Porto Santo", "Atlantic Ocean", "Portugal - Madeira, Porto Santo and Desertas islands - onshore", 44, "EPSG 1888"},
    {"Puerto Rico", "Atlantic Ocean", "Puerto Rico, US Virgin Islands and British Virgin Islands - onshore", 6, "EPSG 1893"},
    {"Qornoq", "Atlantic Ocean", "Greenland - south of 72 degrees N", 0, "EPSG 1211"},
    {"Azores Oriental 1940", "Atlantic Ocean", "Portugal - eastern Azores onshore - Sao Miguel, Santa Maria, Formigas", 44, "EPSG 1885"},
    {"Sapper Hill 1943", "Atlantic Ocean", "Falkland Islands (Malvinas) - East Falkland Island", 2, "EPSG 1225"},
    {"Selvagen Grande", "Atlantic Ocean", "Portugal - Selvagens islands (Madeira province) - onshore", 0, "EPSG 1889"},
    {"Tristan 1968", "Atlantic Ocean", "St Helena, Ascension and Tristan da Cunha - Tristan da Cunha island group including Tristan, Inaccessible, Nightingale, Middle and Stoltenhoff Islands", 44, "EPSG 15816"},
    {"Cocos Islands 1965", "Indian Ocean", "Cocos (Keeling) Islands - onshore", 44, "EPSG 15794"},
    {"Gan 1970", "Indian Ocean", "Maldives - onshore", 44, "EPSG 15713"},
    {"Diego Garcia 1969", "Indian Ocean", "British Indian Ocean Territory - Chagos Archipelago - Diego Garcia", 44, "EPSG 15808"},
    {"IGN 1962 Kerguelen", "Indian Ocean", "French Southern Territories - Kerguelen onshore", 10, "EPSG 15850"},
    {"Mahe 1971", "Indian Ocean", "Seychelles - Mahe Island", 44, "EPSG 1164"},
    {"Reunion 1947", "Indian Ocean", "Reunion - onshore", 44, "EPSG 15751"},
    {"American Samoa 1962", "Pacific Ocean", "American Samoa - Tutuila, Aunu'u, Ofu, Olesega and Ta'u islands", 44, "EPSG 1577"},
    {"Iwo Jima 1945", "Pacific Ocean", "Japan - Iwo Jima island", 44, "EPSG 15796"},
    {"Tern Island 1961", "Pacific Ocean", "United States (USA) - Hawaii - Tern Island and Sorel Atoll", 44, "EPSG 15795"},
    {"Marcus Island 1952", "Pacific Ocean", "Japan - onshore - Tokyo-to south of 28 degrees N and east of 143 degrees E - Minamitori-shima (Marcus Island)", 44, "EPSG 15799"},
    {"Bellevue", "Pacific Ocean", "Vanuatu - southern islands - Aneityum, Efate, Erromango and Tanna", 35, "EPSG 15801"},
    {"Phoenix Islands 1966", "Pacific Ocean", "Kiribati - Phoenix Islands: Kanton, Orona, McKean Atoll, Birnie Atoll, Phoenix Seamounts", 26, "EPSG 15803"},
    {"CI1971", "Pacific Ocean", "New Zealand - Chatham Islands group - onshore", 26, "EPSG 1080"},
    {"Solomon 1968", "Pacific Ocean", "Solomon Islands - Western Islands - New Georgia, Ghizo (Gizo)", 44, "EPSG 15805"},
    {"Easter Island 1967", "Pacific Ocean", "Chile - Easter Island onshore", 44, "EPSG 15806"},
    {"NZGD49", "Pacific Ocean", "New Zealand - North Island, South Island, Stewart Island - onshore and nearshore", 8, "EPSG 1151"},
    {"Guam 1963", "Pacific Ocean", "Guam - onshore", 6, "EPSG 1070"},
    {"Solomon 1968", "Pacific Ocean", "Solomon Islands - Guadalcanal Island", 44, "EPSG 15807"},
    {"Johnston Island 1961", "Pacific Ocean", "United States Minor Outlying Islands - Johnston Island", 44, "EPSG 15809"},
    {"Kusaie 1951", "Pacific Ocean", "Federated States of Micronesia - Kosrae (Kusaie)", 44, "EPSG 15810"},
    {"Luzon 1911", "Pacific Ocean", "Philippines - onshore excluding Mindanao", 17, "EPSG 1161"},
    {"Luzon 1911", "Pacific Ocean", "Philippines - Mindanao onshore", 44, "EPSG 1162"},
    {"Midway 1961", "Pacific Ocean", "United States Minor Outlying Islands - Midway Islands - Sand Island and Eastern Island", 44, "EPSG 15817"},
    {"Old Hawaiian", "Pacific Ocean", "United States (USA) - Hawaii - main islands onshore", 38, "EPSG 15824"},
    {"Old Hawaiian", "Pacific Ocean", "United States (USA) - Hawaii - island of Hawaii - onshore", 44, "EPSG 15825"},
    {"Old Hawaiian", "Pacific Ocean", "United States (USA) - Hawaii - Kauai - onshore", 35, "EPSG 15826"},
    {"Old Hawaiian", "Pacific Ocean", "United States (USA) - Hawaii - Maui; Kahoolawe; Lanai; Molokai - onshore", 44, "EPSG 15827"},
    {"Old Hawaiian", "Pacific Ocean", "United States (USA) - Hawaii - Oahu - onshore", 14, "EPSG 15828"},
    {"Old Hawaiian Intl 1924", "Pacific Ocean", "United States (USA) - Hawaii - main islands onshore", 38, "ESRI 108330"},
    {"Old Hawaiian Intl 1924", "Pacific Ocean", "United States (USA) - Hawaii - island of Hawaii - onshore", 44, "ESRI 108331"},
    {"Old Hawaiian Intl 1924", "Pacific Ocean", "United States (USA) - Hawaii - Kauai - onshore", 35, "ESRI 108332"},
    {"Old Hawaiian Intl 1924", "Pacific Ocean", "United States (USA) - Hawaii - Maui; Kahoolawe; Lanai; Molokai - onshore", 44, "ESRI 108333"},
    {"Old Hawaiian Intl 1924", "Pacific Ocean", "United States (USA) - Hawaii - Oahu - onshore", 14, "ESRI 108334"},
    {"Pitcairn 1967", "Pacific Ocean", "Pitcairn - Pitcairn Island", 44, "EPSG 15819"},
    {"Santo 1965", "Pacific Ocean", "Vanuatu - northern islands - Aese, Ambrym, Aoba, Epi, Espiritu Santo, Maewo, Malo, Malkula, Paama, Pentecost, Shepherd and Tutuba", 44, "EPSG 15820"},
    {"Viti Levu 1916", "Pacific Ocean", "Fiji - Viti Levu island", 44, "EPSG 15821"},
    {"Marshall Islands 1960", "Pacific Ocean", "Marshall Islands - onshore. Wake atoll onshore", 6, "EPSG 15822"},
    {"Wake Island 1952", "Pacific Ocean", "Wake atoll - onshore", 44, "EPSG 15823"},
    {"Bukit Rimpah", "Asia", "Indonesia - Banga and Belitung Islands", 0, "EPSG 1126"},
    {"Camp Area Astro", "Antarctica", "Antarctica - McMurdo Sound, Camp McMurdo area", 0, "EPSG 15802"},
    {"ED50", "Asia", "Iraq, Israel, Jordan, Lebanon, Kuwait, Saudi Arabia and Syria - onshore", 0, "EPSG 1135"},
    {"Segara", "Asia", "Indonesia - Kalimantan", 0, "EPSG 1834"},
    {"Herat North", "Asia", "Afghanistan", 0, "EPSG 1246"},
    {"MGI", "Europe", "Bosnia and Herzegovina; Croatia - onshore; Kosovo; Montenegro - onshore; North Macedonia; Serbia; Slovenia - onshore", 0, "EPSG 1306"},
    {"Kalianpur 1962", "Asia", "Pakistan - onshore", 0, "EPSG 1247"},
    {"Pulkovo 1942", "Asia", "Russian Federation - onshore", 0, "EPSG 1254"},
    {"Tananarive", "Africa", "Madagascar - onshore and nearshore", 0, "EPSG 1227"},
    {"Voirol 1875", "Africa", "Algeria - onshore north of 32 degrees N", 0, "EPSG 1294"},
    {"Yacare", "South America", "Uruguay - onshore", 0, "EPSG 1234"},
    {"User-defined", "", "", 0, ""},
    {"NTF", "Europe", "France - onshore - mainland and Corsica", 2, "EPSG 1193"},
    {"Amersfoort", "Europe", "Netherlands", 0, ""},
    {"Luxembourg 1930", "Europe", "Luxembourg", 0, ""},
}};
// clang-format on

std::string InLowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        c = LowerCase(c);
    }
    return lower;
}

}  // namespace

const DatumDescription* DescribeDatum(std::int32_t datum) {
    const auto index = static_cast<std::size_t>(datum);
    return datum >= 0 && index < DESCRIPTIONS.size() ? &DESCRIPTIONS[index] : nullptr;
}

std::string DatumLine(std::int32_t datum) {
    const DatumDescription* const description = DescribeDatum(datum);
    if (description == nullptr) return {};
    const auto& [name, region, area, accuracy, code] = *description;
    std::string line = name;
    if (*region != '\0') line += std::string("; ") + region;
    if (*area != '\0' && std::string_view(area) != region) line += std::string(": ") + area;
    if (accuracy > 0.0) return line + "; within " + FormatNumber(accuracy) + " m (" + code + ")";
    line += "; no accuracy is registered";
    return *code != '\0' ? line + " (" + code + ")" : line;
}

bool MatchesDatum(std::int32_t datum, std::string_view search) {
    const DatumRow* const row = Datum_Row(datum);
    const DatumDescription* const description = DescribeDatum(datum);
    if (row == nullptr || description == nullptr) return false;
    const char* const ellipsoid = Ellipsoid_Name(static_cast<std::int32_t>(row->ellipsoid));
    const std::string all =
        InLowerCase(DatumName(datum) + '\n' + (ellipsoid != nullptr ? ellipsoid : "") + '\n' +
                    description->name + '\n' + description->region + '\n' + description->area);
    std::string words = InLowerCase(search) + ' ';
    for (std::size_t end = words.find(' '); end != std::string::npos; end = words.find(' ')) {
        if (all.find(words.substr(0, end)) == std::string::npos) return false;
        words.erase(0, end + 1);
    }
    return true;
}

}  // namespace tessara::toolkit
