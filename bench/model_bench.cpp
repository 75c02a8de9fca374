#include "3d/ase_object.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

// What a level waits for: a large model, from its file to its display lists.

namespace {

constexpr int quads_per_side = 100;
constexpr int faces = 2 * quads_per_side * quads_per_side;

/// A wavy square of 20,000 faces with texture coordinates and normals, laid out as 3D Studio Max
/// does it.
std::string largeModel() {
    constexpr int side = quads_per_side + 1;
    std::ostringstream text;
    text << "*3DSMAX_ASCIIEXPORT\t200\n*MATERIAL_LIST {\n\t*MATERIAL_COUNT 1\n\t*MATERIAL 0 {\n"
            "\t\t*MATERIAL_NAME \"sand\"\n\t\t*MATERIAL_DIFFUSE 0.8\t0.7\t0.4\n\t}\n}\n"
            "*GEOMOBJECT {\n\t*NODE_NAME \"dune\"\n\t*MESH {\n\t\t*MESH_NUMVERTEX "
         << side * side << "\n\t\t*MESH_NUMFACES " << faces << "\n\t\t*MESH_NUMTVERTEX "
         << side * side << "\n";
    for (int i = 0; i < side * side; ++i) {
        const int column = i % side, row = i / side;
        const double x = column - 50.125, y = row - 50.375;
        text << "\t\t\t*MESH_VERTEX    " << i << "\t" << x << "\t" << y << "\t"
             << x * y / quads_per_side << "\n";
    }
    const auto corner = [&](int face, int number) {
        const int quad = face / 2;
        const int first = quad / quads_per_side * side + quad % quads_per_side;
        const int even[] = {first, first + 1, first + side + 1};
        const int odd[] = {first, first + side + 1, first + side};
        return face % 2 ? odd[number] : even[number];
    };
    for (int i = 0; i < faces; ++i) {
        text << "\t\t\t*MESH_FACE    " << i << ":    A:    " << corner(i, 0)
             << " B:    " << corner(i, 1) << " C:    " << corner(i, 2)
             << " AB:    1 BC:    1 CA:    0\t *MESH_SMOOTHING 1 \t*MESH_MTLID 0\n";
    }
    for (int i = 0; i < side * side; ++i) {
        const int column = i % side, row = i / side;
        text << "\t\t\t*MESH_TVERT " << i << "\t" << column / 100.0 << "\t" << row / 100.0
             << "\t0.0000\n";
    }
    for (int i = 0; i < faces; ++i) {
        text << "\t\t\t*MESH_TFACE " << i << "\t" << corner(i, 0) << "\t" << corner(i, 1) << "\t"
             << corner(i, 2) << "\n";
    }
    for (int i = 0; i < faces; ++i) {
        text << "\t\t\t*MESH_FACENORMAL " << i << "\t0.0000\t0.0000\t1.0000\n";
        for (int number = 0; number < 3; ++number) {
            text << "\t\t\t\t*MESH_VERTEXNORMAL " << corner(i, number)
                 << "\t0.0000\t0.0000\t1.0000\n";
        }
    }
    text << "\t}\n\t*MATERIAL_REF 0\n}\n";
    return text.str();
}

void loadLargeModel(benchmark::State& state) {
    window();
    const TempDir dir;
    const std::string file = dir.write("large.ASE", largeModel());
    for (auto _ : state) {
        const AseObject model(file, MTL_TEX_ONLY, BOUNDING_BOX, false);
        if (model.getAnzFaces() != faces) state.SkipWithError("faces were lost");
    }
    state.SetItemsProcessed(state.iterations() * faces);
}
BENCHMARK(loadLargeModel)->Unit(benchmark::kMillisecond);

}  // namespace
