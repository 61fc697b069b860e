# Single and double precision are fixed step by step in this program: no contraction, no fast math.
add_compile_options(-ffp-contract=off)
