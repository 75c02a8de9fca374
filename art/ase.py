"""Writes models in the text form that the game loads: one object and one material per file."""

HEADER = "*3DSMAX_ASCIIEXPORT 200\n"


def _number(v):
    text = f"{v:.4f}".rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def _triple(v):
    return " ".join(_number(c) for c in v)


def write(path, name, points, triangles, texture=None, uvs=None, uv_triangles=None, normals=None,
          ambient=(0, 0, 0), diffuse=(1, 1, 1), specular=(1, 1, 1)):
    """Points are in the game's axes (y up); the file's z axis points up, so y and z are swapped
    here and swapped back by the loader. `texture` is the path as the game sees it, without blanks.
    `normals` = (one per triangle, one per point) are written in the game's axes: the loader takes
    them as they are, and only for models that consist of two files."""
    out = [HEADER, "*MATERIAL_LIST {\n\t*MATERIAL_COUNT 1\n\t*MATERIAL 0 {\n",
           f'\t\t*MATERIAL_NAME "{name}"\n',
           f"\t\t*MATERIAL_AMBIENT {_triple(ambient)}\n",
           f"\t\t*MATERIAL_DIFFUSE {_triple(diffuse)}\n",
           f"\t\t*MATERIAL_SPECULAR {_triple(specular)}\n"]
    if texture:
        out += ["\t\t*MAP_DIFFUSE {\n", f'\t\t\t*BITMAP "{texture}"\n',
                "\t\t\t*UVW_U_OFFSET 0\n\t\t\t*UVW_V_OFFSET 0\n",
                "\t\t\t*UVW_U_TILING 1\n\t\t\t*UVW_V_TILING 1\n\t\t}\n"]
    out += ["\t}\n}\n*GEOMOBJECT {\n", f'\t*NODE_NAME "{name}"\n', "\t*MESH {\n",
            f"\t\t*MESH_NUMVERTEX {len(points)}\n\t\t*MESH_NUMFACES {len(triangles)}\n",
            "\t\t*MESH_VERTEX_LIST {\n"]
    out += [f"*MESH_VERTEX {n} {_triple((x, -z, y))}\n" for n, (x, y, z) in enumerate(points)]
    out.append("\t\t}\n\t\t*MESH_FACE_LIST {\n")
    out += [f"*MESH_FACE {n}: A: {a} B: {b} C: {c}\n" for n, (a, b, c) in enumerate(triangles)]
    out.append("\t\t}\n")
    if uvs is not None:
        out.append(f"\t\t*MESH_NUMTVERTEX {len(uvs)}\n\t\t*MESH_TVERTLIST {{\n")
        out += [f"*MESH_TVERT {n} {u:.5f} {v:.5f} 0\n" for n, (u, v) in enumerate(uvs)]
        out.append(f"\t\t}}\n\t\t*MESH_NUMTVFACES {len(uv_triangles)}\n\t\t*MESH_TFACELIST {{\n")
        out += [f"*MESH_TFACE {n} {a} {b} {c}\n" for n, (a, b, c) in enumerate(uv_triangles)]
        out.append("\t\t}\n")
    if normals is not None:
        out.append("\t\t*MESH_NORMALS {\n")
        out += [f"*MESH_FACENORMAL {n} {_triple(v)}\n" for n, v in enumerate(normals[0])]
        out += [f"*MESH_VERTEXNORMAL {n} {_triple(v)}\n" for n, v in enumerate(normals[1])]
        out.append("\t\t}\n")
    out.append("\t}\n\t*MATERIAL_REF 0\n}\n")
    with open(path, "w", encoding="ascii", newline="\n") as f:
        f.writelines(out)
