// Draws one target icon. Chosen on the command line with Declare:
//   Vehicle         1 tank, 2 carrier, 3 truck
//   Turret          degrees by which the turret is turned to the left
//   Aside, Above    degrees from the vehicle's front to the viewer, to the left and up
//   Middle, Bottom  metres from the ground under the vehicle's middle to the picture's middle (to the right) and to
//                   its lower edge (up)
//   Side            metres across the picture
//   Thinnest        see vehicles.inc
//   Pass            0 the vehicle in daylight, 1 its shadow on white ground, 2 the vehicle by its heat
#version 3.7;
#include "functions.inc"

// In daylight the pigments and lights are linear; the other passes compute the values of the picture.
global_settings {
    #if (Pass = 0) assumed_gamma 1 #else assumed_gamma srgb #end
    ambient_light rgb 1
}
background { rgbt 1 }

// Materials: their colour (reflectance, 0 to 1, linear) in daylight, and their heat, from 0 for the coldest part of
// a vehicle to 1 for the hottest.

// Noise from -1 to 1, twice as high as it is wide, like streaks of rain.
#declare Grain = function(X, Y, Z, Fineness) { 2 * f_noise3d(Fineness * X, Fineness * Y, 0.5 * Fineness * Z) - 1 }
#declare Stain = function(X, Y, Z) { Grain(X, Y, Z, 3) }
#declare Wear = function(X, Y, Z) { Grain(X, Y, Z, 14) }
#macro Worn(Colour)
    pigment {
        function { 0.5 + 0.22 * Stain(x, y, z) + 0.2 * Wear(x, y, z) }
        color_map { [0 rgb Colour * 0.5] [1 rgb Colour * 1.5] }
    }
#end
// Near the ground there is mud.
#macro Painted(Paint)
    pigment {
        function { max(0, min(0.999, (0.55 + 0.6 * Wear(x, y, z) + 0.5 * Stain(x, y, z)) * exp(-z / 0.6))) }
        pigment_map { [0 Paint] [1 rgb <0.30, 0.25, 0.16>] }
    }
    finish { diffuse 1 ambient <0.043, 0.043, 0.028> }   // light reflected by the grass
#end
// Brightness in a thermal picture: white is hot. Every part of a vehicle is brighter than the ground, which is at
// most 0.6.
#macro Glowing(Heat)
    pigment { rgb 1 }
    finish { ambient 0.73 + 0.31 * Heat diffuse 1 - Heat }
#end
#macro Plain(Colour, Heat)
    texture { #if (Pass = 0) Painted(Worn(Colour)) #else Glowing(Heat) #end }
#end
// Three shades: dark, the colour, light.
#declare Pattern = function {
    0.5 + 0.2 * (sin(1.9 * x + 1.3 * y + 1.1 * z) + sin(1.2 * x - 2.3 * y + 1.9 * z + 2) +
                 0.5 * sin(4.1 * x + 2.9 * y - 3.3 * z))
}
#macro Camouflaged(Colour, Heat)
    #local Dark = Worn(Colour * <0.55, 0.5, 0.5>)
    #local Usual = Worn(Colour)
    #local Light = Worn(Colour * <1.75, 1.5, 1.3>)
    #local Paint = pigment {
        function { Pattern(x, y, z) }
        pigment_map { [0.36 Dark] [0.36 Usual] [0.65 Usual] [0.65 Light] }
    }
    texture { #if (Pass = 0) Painted(Paint) #else Glowing(Heat) #end }
#end

#include "vehicles.inc"

// The picture -----------------------------------------------------------------------------------------------

// The direction at these degrees to the left of the x axis and above the ground.
#macro Towards(Azimuth, Elevation) vrotate(vrotate(x, -Elevation * y), Azimuth * z) #end
#declare Viewer = Towards(Aside, Above);
#declare Right = vrotate(y, Aside * z);
#declare Up = vcross(Viewer, Right);
camera {
    orthographic
    location 20 * Viewer + Middle * Right + (Bottom + Side / 2) * Up
    direction -Viewer
    right Side * Right
    up Side * Up
}

// The sun and the sky. As on the shipped ranges, the sun is behind the viewer, to the upper left. The sky consists of
// patches of equal size, on a spiral from the horizon to the zenith. In a thermal picture the sun warms a little,
// and a face is the colder the more sky it sees.
#declare Patches = 24;
#declare OnGround = 0;   // the light on level ground
#macro Light(From, Daylight, Warmth)
    #declare OnGround = OnGround + Daylight.green * From.z;
    light_source {
        1000 * From
        #switch (Pass)
            #case (0) rgb Daylight #break
            #case (1) rgb Daylight.green #break
            #case (2) rgb Warmth #break
        #end
        parallel point_at 0
    }
#end
Light(Towards(Aside - 52, 46), <1.16, 1.08, 0.94>, 0.06)
#for (I, 0, Patches - 1)
    Light(Towards(I * 137.508, degrees(asin((I + 0.5) / Patches))), <0.62, 0.70, 0.80> * 2 / Patches, -0.2 / Patches)
#end

object {
    #switch (Vehicle)
        #case (1) Tank #break
        #case (2) Carrier #break
        #case (3) Truck #break
    #end
    #if (Pass = 1) no_image #end
}
#if (Pass = 1) plane { z, 0 pigment { rgb 1 / OnGround } finish { diffuse 1 ambient 0 } } #end
