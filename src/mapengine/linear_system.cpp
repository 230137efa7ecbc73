#include "mapengine/linear_system.h"

#include <Eigen/LU>

namespace crownlab {

std::vector<double> Solve(const LinearSystem& system) {
    const auto size = static_cast<Eigen::Index>(system.Size);
    const Eigen::Map<const Eigen::MatrixXd> matrix(system.Columns.data(), size, size);
    const Eigen::Map<const Eigen::VectorXd> right(system.Right.data(), size);
    const Eigen::FullPivLU<Eigen::MatrixXd> factors(matrix);
    const Eigen::VectorXd solution = factors.solve(right);
    return {solution.data(), solution.data() + size};
}

}  // namespace crownlab
