#version 440

// The spotlight mask: black, fully clear inside the inner circle, rising to
// `darkness` at `radius` over a feather of `edgeBlur` item pixels.
layout(location = 0) in vec2 qt_TexCoord0;
layout(location = 0) out vec4 fragColor;

layout(std140, binding = 0) uniform buf {
    mat4 qt_Matrix;
    float qt_Opacity;
    vec2 center;
    vec2 itemSize;
    float radius;
    float edgeBlur;
    float darkness;
    float activeAmount;
};

void main()
{
    vec2 pixel = qt_TexCoord0 * itemSize;
    float feather = max(0.001, edgeBlur);
    float inner = max(0.0, radius - feather);
    float d = distance(pixel, center);
    float edge = clamp((d - inner) / feather, 0.0, 1.0);
    // A slightly late rise keeps the bright disc a little wider than a linear ramp.
    edge = pow(edge, 1.12);
    float alpha = clamp(edge * darkness * activeAmount * qt_Opacity, 0.0, 1.0);
    // Premultiplied: black at that alpha.
    fragColor = vec4(0.0, 0.0, 0.0, alpha);
}
