# SPDX-License-Identifier: GPL-3.0-or-later
# The portable copy of Kelvora for Windows: cmake -DBUILD_DIR=... -DNAME=... -DLICENSE=... -P
# The install tree's bin folder becomes the top of <NAME>\, with the licence beside the programme
# instead of a share folder; then <NAME>.zip of that folder.
set(stage ${BUILD_DIR}/portable-stage)
file(REMOVE_RECURSE ${stage} ${BUILD_DIR}/${NAME} ${BUILD_DIR}/${NAME}.zip)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${stage} --strip
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${stage}/bin ${BUILD_DIR}/${NAME})
file(REMOVE_RECURSE ${stage})
configure_file(${LICENSE} ${BUILD_DIR}/${NAME}/COPYING.txt COPYONLY)
execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${NAME}.zip --format=zip ${NAME}
    WORKING_DIRECTORY ${BUILD_DIR} COMMAND_ERROR_IS_FATAL ANY)
