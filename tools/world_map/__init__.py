"""The parts of tools/make_world_map.py."""
